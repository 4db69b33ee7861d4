// Groups of linked items, from links between pairs of them.
#pragma once

#include "inspect/timeline.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <vector>

namespace XPJ::Inspection {

class LinkGroups {
public:
    // Puts both into one group, with all that is linked to either.
    void Join(ItemIndex a, ItemIndex b)
    {
        const std::size_t rootA = RootOf(NumberOf(a));
        const std::size_t rootB = RootOf(NumberOf(b));
        parents_[std::max(rootA, rootB)] = std::min(rootA, rootB);
    }
    // Those of more than one item, each in the order of the tracks.
    std::vector<std::vector<ItemIndex>> Groups()
    {
        std::map<std::size_t, std::vector<ItemIndex>> byRoot;
        for (const auto& [index, number] : numbers_)
            byRoot[RootOf(number)].push_back(index);
        std::vector<std::vector<ItemIndex>> groups;
        for (auto& [root, members] : byRoot)
            if (members.size() > 1)
                groups.push_back(std::move(members));
        std::sort(groups.begin(), groups.end());
        return groups;
    }

private:
    std::size_t NumberOf(ItemIndex index)
    {
        const auto [entry, isNew] = numbers_.emplace(index, parents_.size());
        if (isNew)
            parents_.push_back(parents_.size());
        return entry->second;
    }
    std::size_t RootOf(std::size_t number)
    {
        while (parents_[number] != number)
            number = parents_[number] = parents_[parents_[number]];
        return number;
    }

    std::map<ItemIndex, std::size_t> numbers_;
    std::vector<std::size_t> parents_;
};

} // namespace XPJ::Inspection

// Nodes in the order in which they were met first, each once.
#pragma once

#include "tree/object.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace XPJ::Inspection {

template <class Handle>
class NodeNumbers {
public:
    // Its number, from 0, also of a node that was not met before.
    std::size_t NumberOf(Handle node)
    {
        const auto [entry, isNew] = numbers_.emplace(node.UniqueId(), nodes_.size());
        if (isNew)
            nodes_.push_back(node);
        return entry->second;
    }
    std::size_t Size() const { return nodes_.size(); }
    const std::vector<Handle>& Nodes() const { return nodes_; }
    Handle At(std::size_t number) const { return nodes_[number]; }

private:
    std::vector<Handle> nodes_;
    std::unordered_map<std::uint64_t, std::size_t> numbers_; // by `uniqueId`
};

} // namespace XPJ::Inspection

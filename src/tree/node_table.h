// A record for each node of a walk, found by the node's identity in constant time.
#pragma once

#include "tree/object.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace XPJ {

// The identities of one conversion are close together, so the records are kept in pages of
// neighbours; a page is made when one of its nodes is first looked up. A record does not move.
template <class Record>
class NodeTable {
public:
    Record& operator[](ConstHandle node)
    {
        const std::uint64_t page = node.UniqueId() / kPageSize;
        if (page - firstPage_ >= pages_.size()) // also when it is before the first
            Widen(page);
        std::unique_ptr<Page>& slot = pages_[page - firstPage_];
        if (!slot)
            slot = std::make_unique<Page>();
        return (*slot)[node.UniqueId() % kPageSize];
    }

    // Null for a node of no page.
    const Record* Find(ConstHandle node) const
    {
        const std::uint64_t page = node.UniqueId() / kPageSize - firstPage_;
        if (page >= pages_.size() || !pages_[page])
            return nullptr;
        return &(*pages_[page])[node.UniqueId() % kPageSize];
    }

private:
    static constexpr std::uint64_t kPageSize = 1024;
    using Page = std::array<Record, kPageSize>;

    // Grows by half, so that a walk in falling order costs no more than one in rising order.
    void Widen(std::uint64_t page)
    {
        if (pages_.empty())
            firstPage_ = page;
        const std::uint64_t spare = pages_.size() / 2 + 1;
        if (page < firstPage_) {
            const std::uint64_t first = page - std::min(page, spare);
            std::vector<std::unique_ptr<Page>> wider(firstPage_ - first + pages_.size());
            std::move(pages_.begin(), pages_.end(),
                      wider.end() - static_cast<std::ptrdiff_t>(pages_.size()));
            pages_ = std::move(wider);
            firstPage_ = first;
        } else {
            pages_.resize(page - firstPage_ + spare);
        }
    }

    std::uint64_t firstPage_ = 0;
    std::vector<std::unique_ptr<Page>> pages_;
};

} // namespace XPJ

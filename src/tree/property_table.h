// The properties of one node at a time, found by their names without a search.
#pragma once

#include "tree/object.h"

#include <cstddef>
#include <vector>

namespace XPJ {

// For readers that look up most of a node's properties. Marks nothing as read.
class PropertyTable {
public:
    // Forgets the node before.
    void Take(ConstHandle node)
    {
        for (const Property& property : node_.Properties())
            byName_[property.name.Index()] = nullptr;
        node_ = node;
        for (const Property& property : node_.Properties()) {
            const std::size_t index = property.name.Index();
            if (index >= byName_.size())
                byName_.resize(index + 1);
            byName_[index] = &property;
        }
    }

    // Null if there is none.
    const Property* Find(NameId name) const
    {
        return name.Index() < byName_.size() ? byName_[name.Index()] : nullptr;
    }

private:
    ConstHandle node_;
    std::vector<const Property*> byName_;
};

} // namespace XPJ

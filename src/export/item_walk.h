// The items of the browser, one after the other.
#pragma once

#include "tree/object.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace XPJ::RVX {

// Goes through a root item in document order, a bin before what it holds. Bins refer to each other
// by GUID, so a damaged project may nest them to any depth or in a circle: the walk keeps its own
// stack and takes a bin once.
class ItemWalk {
public:
    struct Step {
        ConstHandle item;
        std::size_t depth = 0; // 0 right under the root item
    };

    explicit ItemWalk(ConstHandle rootItem) { Enter(rootItem); }

    // Nothing at the end. After a bin come its items.
    std::optional<Step> Next();

private:
    void Enter(ConstHandle bin);

    std::vector<ConstChildRange::Iterator> levels_; // the next item of each
    NodeSet bins_;
};

bool IsBinItem(ConstHandle item);
bool IsClipItem(ConstHandle item);

} // namespace XPJ::RVX

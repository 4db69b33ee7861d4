#include "export/item_walk.h"

#include "project/accessors.h"

namespace XPJ::RVX {

bool IsBinItem(ConstHandle item)
{
    return item.GetName() == "BinProjectItem";
}

bool IsClipItem(ConstHandle item)
{
    return item.GetName() == "ClipProjectItem";
}

void ItemWalk::Enter(ConstHandle bin)
{
    levels_.push_back(ItemList(bin).GetChildren().begin());
}

std::optional<ItemWalk::Step> ItemWalk::Next()
{
    const ConstChildRange::Iterator end = ConstChildRange(nullptr).end();
    while (!levels_.empty()) {
        ConstChildRange::Iterator& next = levels_.back();
        if (!(next != end)) {
            levels_.pop_back();
            continue;
        }
        const Step step{*next, levels_.size() - 1};
        ++next;
        if (!IsBinItem(step.item))
            return step;
        if (bins_.Insert(step.item)) {
            Enter(step.item);
            return step;
        }
    }
    return std::nullopt;
}

} // namespace XPJ::RVX

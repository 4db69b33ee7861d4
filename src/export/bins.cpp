#include "export/bins.h"

#include "core/text.h"
#include "export/clip_notes.h"
#include "export/clips.h"
#include "export/item_walk.h"
#include "project/accessors.h"

#include <algorithm>
#include <vector>

namespace XPJ::RVX {

namespace {

// Documents are read to a nesting of kMaxNesting elements. A bin takes two, `bin` and `children`;
// this many leave room for what may stand in the innermost: a clip, or sequences in sequences.
// Bins that are deeper stand beside each other in the last one, with all that they hold.
constexpr std::size_t kMaxBinDepth = 400;

// Gives the new bin's `children`, empty for now.
ObjectHandle TranslateBin(ExportContext& context, ConstHandle binItem, ObjectHandle parentChildren)
{
    const ObjectHandle bin = context.document.NewObject("bin");
    bin.SetProperty("name", EscapeXML(ItemName(binItem)));
    WriteItemLabel(context, ItemProperties(binItem), bin);
    const ObjectHandle children = context.document.NewObject("children");
    bin.AddChild(children);
    parentChildren.AddChild(bin);
    return children;
}

bool ShowsSequence(ConstHandle clipItem, const Guid& guid)
{
    const ConstHandle sequence = SequenceOfMaster(MasterOfItem(clipItem));
    return StringToGUID(ObjectGuid(sequence)) == guid;
}

bool TranslateChosenSequence(ExportContext& context, ConstHandle rootItem, const Guid& guid,
                             ObjectHandle children)
{
    ItemWalk walk(rootItem);
    while (const auto step = walk.Next()) {
        if (!IsClipItem(step->item) || !ShowsSequence(step->item, guid))
            continue;
        TranslateMasterClip(context, step->item, children);
        return true;
    }
    return false;
}

} // namespace

void CollectProjectItems(ExportContext& context, ConstHandle rootItem)
{
    ItemWalk walk(rootItem);
    while (const auto step = walk.Next())
        if (const ConstHandle master = MasterOfItem(step->item))
            context.projectItems.try_emplace(master.UniqueId(), step->item);
}

bool TranslateItems(ExportContext& context, ConstHandle rootItem, const Guid& sequenceGuid,
                    ObjectHandle children)
{
    if (sequenceGuid != kZeroGuid)
        return TranslateChosenSequence(context, rootItem, sequenceGuid, children);
    bool found = false;
    std::vector<ObjectHandle> childrenAt{children}; // where the items of each depth go
    ItemWalk walk(rootItem);
    while (const auto step = walk.Next()) {
        childrenAt.resize(step->depth + 1);
        if (IsBinItem(step->item))
            childrenAt.push_back(
                TranslateBin(context, step->item, childrenAt[std::min(step->depth, kMaxBinDepth)]));
        else if (IsClipItem(step->item))
            TranslateMasterClip(context, step->item, childrenAt.back());
        else
            continue;
        found = true;
    }
    return found;
}

} // namespace XPJ::RVX

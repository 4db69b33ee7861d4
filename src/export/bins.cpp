#include "export/bins.h"

#include "core/text.h"
#include "export/clips.h"
#include "export/logging.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace XPJ::RVX {

namespace {

// Documents are read to a nesting of kMaxNesting elements. A bin takes two, `bin` and `children`;
// this many leave room for what may be in the innermost: a clip, or sequences in sequences. Bins
// that are deeper are written beside each other in the last one, with all that they hold.
constexpr std::size_t kMaxBinDepth = 400;

bool IsBinItem(ConstHandle item)
{
    return item.GetName() == "BinProjectItem";
}

bool IsClipItem(ConstHandle item)
{
    return item.GetName() == "ClipProjectItem";
}

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
    void Enter(ConstHandle bin) { levels_.push_back(ItemsOf(bin).begin()); }

    std::vector<ConstChildRange::Iterator> levels_; // the next item of each
    NodeSet bins_;
};

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

// Gives the new bin's `children`, empty for now.
ObjectHandle TranslateBin(ExportContext& context, ConstHandle binItem, ObjectHandle parentChildren)
{
    const ObjectHandle bin = context.document.NewObject("bin");
    bin.SetProperty("name", EscapeXML(binItem.GetProperty("Name")));
    WriteLabel(context, binItem, kItemLabel, bin);
    const ObjectHandle children = context.document.NewObject("children");
    bin.AddChild(children);
    parentChildren.AddChild(bin);
    return children;
}

bool ShowsSequence(ConstHandle clipItem, const Guid& guid)
{
    const ConstHandle sequence = MasterOfItem(clipItem).Sequence();
    return StringToGUID(ObjectGuid(sequence)) == guid;
}

bool TranslateChosenSequence(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                             ObjectHandle children)
{
    ItemWalk walk(rootItem);
    while (const auto step = walk.Next()) {
        if (!IsClipItem(step->item) || !ShowsSequence(step->item, context.options.sequenceGuid))
            continue;
        TranslateBrowserClip(context, catalogs, step->item, children);
        return true;
    }
    return false;
}

bool TranslateAll(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                  ObjectHandle children)
{
    bool found = false;
    std::vector<ObjectHandle> childrenAt{children}; // where the items of each depth go
    ItemWalk walk(rootItem);
    while (const auto step = walk.Next()) {
        childrenAt.resize(step->depth + 1);
        if (IsBinItem(step->item))
            childrenAt.push_back(
                TranslateBin(context, step->item, childrenAt[std::min(step->depth, kMaxBinDepth)]));
        else if (IsClipItem(step->item))
            TranslateBrowserClip(context, catalogs, step->item, childrenAt.back());
        else
            continue;
        found = true;
    }
    return found;
}

} // namespace

void CollectBrowserItems(ConstHandle rootItem, MasterCatalog& masters)
{
    ItemWalk walk(rootItem);
    while (const auto step = walk.Next())
        if (const MasterClip masterClip = MasterOfItem(step->item))
            masters.AddBrowserItem(masterClip, step->item);
}

bool TranslateItems(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                    ObjectHandle children)
{
    return context.options.sequenceGuid == kZeroGuid
               ? TranslateAll(context, catalogs, rootItem, children)
               : TranslateChosenSequence(context, catalogs, rootItem, children);
}

} // namespace XPJ::RVX

#include "export/bins.h"

#include "core/text.h"
#include "export/clips.h"
#include "export/logging.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace XPJ::RVX {

namespace {

// Documents are read to a nesting of kMaxNesting elements. A bin takes two, `bin` and `children`;
// this many leave room for what may be in the innermost: a clip, or sequences in sequences. Depths
// count from 0; bins that are deeper are written beside each other in the last one, with all that
// they hold.
constexpr std::size_t kMaxBinDepth = 400;

bool IsBinItem(ConstHandle item)
{
    return item.GetName() == "BinProjectItem";
}

bool IsClipItem(ConstHandle item)
{
    return item.GetName() == "ClipProjectItem";
}

// Of bins that nest without end only the first and the last are named: "A/B/.../Y".
std::string PathOfBin(std::string_view parent, std::string_view name)
{
    constexpr std::size_t kLongest = 500;
    std::string path(parent);
    if (path.size() > kLongest)
        path = std::string(TruncatedText(parent, std::min(parent.rfind('/', kLongest), kLongest)))
                   .append("/...");
    return path.append(path.empty() ? "" : "/").append(name);
}

// Goes through a root item in document order, a bin before what it holds. Bins refer to each other
// by GUID, so a damaged project may nest them to any depth or in a circle: the walk keeps its own
// stack and takes a bin once.
class ItemWalk {
public:
    struct Step {
        ConstHandle item;
        std::size_t depth = 0; // 0 right under the root item
        std::string_view bin;  // path of the bins around it
    };

    // Paths are stored in `document`.
    ItemWalk(Document& document, ConstHandle rootItem) : document_(document)
    {
        Enter(rootItem, {});
    }

    // Nothing at the end. After a bin come its items.
    std::optional<Step> Next();

private:
    struct Level {
        ConstChildRange::Iterator next;
        std::string_view path;
    };
    void Enter(ConstHandle bin, std::string_view path)
    {
        levels_.push_back({ItemsOf(bin).begin(), path});
    }

    Document& document_;
    std::vector<Level> levels_;
    NodeSet bins_;
};

std::optional<ItemWalk::Step> ItemWalk::Next()
{
    const ConstChildRange::Iterator end = ConstChildRange(nullptr).end();
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (!(level.next != end)) {
            levels_.pop_back();
            continue;
        }
        const Step step{*level.next, levels_.size() - 1, level.path};
        ++level.next;
        if (!IsBinItem(step.item))
            return step;
        if (bins_.Insert(step.item)) {
            Enter(step.item, document_.Store(PathOfBin(step.bin, step.item.GetProperty("Name"))));
            return step;
        }
    }
    return std::nullopt;
}

// Gives the new bin's `children`, empty for now.
ObjectHandle TranslateBin(ExportContext& context, const ItemWalk::Step& step,
                          ObjectHandle parentChildren)
{
    const ConstHandle binItem = step.item;
    const ItemLocation location{.clip = binItem.GetProperty("Name"), .bin = step.bin};
    if (step.depth > kMaxBinDepth)
        AddRemark(context.account, RemarkKind::BinTooDeep, location);
    ReportLabel(context, binItem, kItemLabel, location);
    const ObjectHandle bin = context.document.NewObject("bin");
    bin.SetProperty("name", EscapeXML(binItem.GetProperty("Name")));
    WriteLabel(context, binItem, kItemLabel, bin);
    const ObjectHandle children = context.document.NewObject("children");
    bin.AddChild(children);
    parentChildren.AddChild(bin);
    return children;
}

// By the first clip of its master: what further clips show, the item is not written as.
bool ShowsSequence(ConstHandle clipItem, const Guid& guid)
{
    const ConstHandle first = MasterOfItem(clipItem).GetChild("Clip");
    return StringToGUID(ObjectGuid(SequenceOfSource(SourceOfClip(first)))) == guid;
}

bool TranslateChosenSequence(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                             ObjectHandle children)
{
    ItemWalk walk(context.document, rootItem);
    while (const auto step = walk.Next()) {
        if (!IsClipItem(step->item) || !ShowsSequence(step->item, context.options.sequenceGuid))
            continue;
        TranslateBrowserClip(context, catalogs, {step->item, step->bin}, children);
        return true;
    }
    AddRemark(context.account, RemarkKind::SequenceUnknown, {},
              {.detail = AsString(context.options.sequenceGuid)});
    return false;
}

bool TranslateAll(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                  ObjectHandle children)
{
    bool found = false;
    std::vector<ObjectHandle> childrenAt{children}; // where the items of each depth go
    ItemWalk walk(context.document, rootItem);
    while (const auto step = walk.Next()) {
        childrenAt.resize(step->depth + 1);
        if (IsBinItem(step->item))
            childrenAt.push_back(
                TranslateBin(context, *step, childrenAt[std::min(step->depth, kMaxBinDepth)]));
        else if (IsClipItem(step->item))
            TranslateBrowserClip(context, catalogs, {step->item, step->bin}, childrenAt.back());
        else
            continue;
        found = true;
    }
    return found;
}

} // namespace

void CollectBrowserItems(Document& document, ConstHandle rootItem, MasterCatalog& masters)
{
    ItemWalk walk(document, rootItem);
    while (const auto step = walk.Next())
        if (const MasterClip masterClip = MasterOfItem(step->item))
            masters.AddBrowserItem(masterClip, {step->item, step->bin});
}

bool TranslateItems(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                    ObjectHandle children)
{
    return context.options.sequenceGuid == kZeroGuid
               ? TranslateAll(context, catalogs, rootItem, children)
               : TranslateChosenSequence(context, catalogs, rootItem, children);
}

} // namespace XPJ::RVX

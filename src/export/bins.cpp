#include "export/bins.h"

#include "core/text.h"
#include "export/clips.h"
#include "export/project_paths.h"
#include "model/side_tables.h"

#include <vector>

namespace XPJ::RVX {

namespace {

// A label that the table doesn't know leaves an empty `labels`.
void CopyLabel(ExportContext& context, ObjectHandle binItem, ObjectHandle bin)
{
    const ObjectHandle properties = ItemProperties(binItem);
    if (!properties.HasProperty("Column.PropertyText.Label"))
        return;
    const ObjectHandle labels = context.document.NewObject("labels");
    bin.AddChild(labels);
    const std::string_view name = LabelNameOf(properties.GetProperty("Column.PropertyText.Label"));
    if (!name.empty())
        labels.SetProperty("label2", name);
}

// Gives the new bin's `children`, empty for now.
ObjectHandle TranslateBin(ExportContext& context, ObjectHandle binItem, ObjectHandle parentChildren)
{
    const ObjectHandle bin = context.document.NewObject("bin");
    bin.SetProperty("name", EscapeXML(ItemName(binItem)));
    CopyLabel(context, binItem, bin);
    const ObjectHandle children = context.document.NewObject("children");
    bin.AddChild(children);
    parentChildren.AddChild(bin);
    return children;
}

bool ShowsSequence(ObjectHandle clipItem, const Guid& guid)
{
    const ObjectHandle sequence = SequenceOfMaster(clipItem.GetChild("MasterClip"));
    return StringToGUID(ObjectGuid(sequence)) == guid;
}

} // namespace

// Bins refer to each other by GUID, so a damaged project may nest them to any depth or in a circle:
// the walk keeps its own stack and enters a bin once.
bool TranslateItems(ExportContext& context, ObjectHandle rootItem, const Guid& sequenceGuid,
                    ObjectHandle children)
{
    struct Level {
        ChildRange::Iterator next;
        ObjectHandle children; // where the level's items go
    };
    const bool wholeProject = sequenceGuid == kZeroGuid;
    const ChildRange::Iterator end = ItemList(rootItem).GetChildren().end();
    std::vector<Level> levels{{ItemList(rootItem).GetChildren().begin(), children}};
    NodeSet visitedBins;
    bool found = false;
    while (!levels.empty()) {
        Level& level = levels.back();
        if (!(level.next != end)) {
            levels.pop_back();
            continue;
        }
        const ObjectHandle item = *level.next;
        ++level.next;
        if (item.GetName() == "ClipProjectItem") {
            if (!wholeProject && !ShowsSequence(item, sequenceGuid))
                continue;
            TranslateMasterClip(context, item, level.children);
            found = true;
            if (!wholeProject)
                return true;
        } else if (item.GetName() == "BinProjectItem" && visitedBins.Insert(item)) {
            const ObjectHandle inner =
                wholeProject ? TranslateBin(context, item, level.children) : level.children;
            found = found || wholeProject;
            levels.push_back({ItemList(item).GetChildren().begin(), inner});
        }
    }
    return found;
}

} // namespace XPJ::RVX

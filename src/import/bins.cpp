#include "import/bins.h"

#include "import/item_place.h"
#include "import/logging.h"
#include "import/master_clips.h"
#include "import/multiclips.h"
#include "import/sequences.h"

namespace XPJ {

namespace {

// A bin that a cancellation cuts short is dropped.
bool TranslateBin(ImportState& state, ObjectHandle bin, ObjectHandle parentItem)
{
    const ObjectHandle item = state.document.NewObject("BinProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", bin.GetProperty("name"));
    CopyLabel(bin, item, "Column.PropertyText.Label");
    const ObjectHandle children = bin.GetChild("children");
    if (children && !TranslateChildren(state, children, item))
        return false;
    parentItem.AddChild("ProjectItem", item);
    return true;
}

// A clip that stands in two bins gets two project items of one master, on purpose.
void TranslateClip(ImportState& state, ObjectHandle clip, ObjectHandle parentItem)
{
    const ObjectHandle multiclip = FindMulticlip(clip);
    if (multiclip && !IsCollapsed(multiclip))
        TranslateMulticlipItem(state, clip, parentItem);
    else if (TranslateMasterClipItems(state, clip, parentItem) == 0)
        AddLeftOut(state, {.clip = clip.GetProperty("name")});
}

bool TranslateChild(ImportState& state, ObjectHandle child, ObjectHandle parentItem)
{
    if (child.GetName() == "bin")
        return TranslateBin(state, child, parentItem);
    if (child.GetName() == "clip")
        TranslateClip(state, child, parentItem);
    else if (child.GetName() == "sequence")
        TranslateSequence(state, child, parentItem);
    return true;
}

std::size_t CountChildren(ObjectHandle node)
{
    std::size_t count = 0;
    for ([[maybe_unused]] const ObjectHandle& child : node.GetChildren())
        ++count;
    return count;
}

} // namespace

// Recurses through bins, whose nesting the reader bounds.
bool TranslateChildren(ImportState& state, ObjectHandle children, ObjectHandle parentItem)
{
    StageScope stage(state.progress, 1, CountChildren(children));
    for (const ObjectHandle& child : children.GetChildren())
        if (!TranslateChild(state, child, parentItem) || !stage.Step())
            return false;
    return true;
}

} // namespace XPJ

#include "import/bins.h"

#include "import/item_issues.h"
#include "import/logging.h"
#include "import/master_clips.h"
#include "import/multiclips.h"
#include "import/sequences.h"

#include <memory>
#include <stack>

namespace XPJ {

namespace {

ObjectHandle MakeBinItem(const ImportState& state, ObjectHandle bin)
{
    const ObjectHandle item = state.document.NewObject("BinProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", bin.GetProperty("name"));
    CopyLabel(bin, item, "Column.PropertyText.Label");
    return item;
}

// A clip that stands in two bins gets two project items of one master, on purpose.
void TranslateClip(ImportState& state, ObjectHandle clip, ObjectHandle parentItem)
{
    const ObjectHandle multiclip = FindMulticlip(clip);
    if (multiclip && !IsCollapsed(multiclip))
        TranslateMulticlipItem(state, clip, parentItem);
    else if (TranslateMasterClipItems(state, clip, parentItem) == 0)
        AddSkipped(state, {.clip = clip.GetProperty("name")});
}

void TranslateChild(ImportState& state, ObjectHandle child, ObjectHandle parentItem)
{
    if (child.GetName() == "clip")
        TranslateClip(state, child, parentItem);
    else if (child.GetName() == "sequence")
        TranslateSequence(state, child, parentItem);
}

std::size_t CountChildren(ObjectHandle node)
{
    std::size_t count = 0;
    for ([[maybe_unused]] const ObjectHandle& child : node.GetChildren())
        ++count;
    return count;
}

// A `children` on the way, and the item that takes what it holds. Bins nest far deeper than a
// thread's stack may reach, so the open ones stand on a stack of these.
struct OpenList {
    OpenList(Progress& progress, ObjectHandle children, ObjectHandle parentItem)
        : stage(progress, 1, CountChildren(children)), next(children.GetChildren().begin()),
          end(children.GetChildren().end()), item(parentItem)
    {
    }

    StageScope stage;
    ChildRange::Iterator next;
    ChildRange::Iterator end;
    ObjectHandle item;
};

using OpenLists = std::stack<std::unique_ptr<OpenList>>;

// The next child of the innermost list. A bin opens its own list, and is counted, and hung on its
// parent, when that is done. False when cancelled.
bool TranslateNext(ImportState& state, OpenLists& lists)
{
    OpenList& list = *lists.top();
    const ObjectHandle child = *list.next;
    ++list.next;
    if (child.GetName() != "bin") {
        TranslateChild(state, child, list.item);
        return list.stage.Step();
    }
    const ObjectHandle item = MakeBinItem(state, child);
    lists.push(std::make_unique<OpenList>(state.progress, child.GetChild("children"), item));
    return true;
}

// The same for a list that is done.
bool CloseList(OpenLists& lists)
{
    const ObjectHandle item = lists.top()->item;
    lists.pop();
    if (lists.empty())
        return true;
    lists.top()->item.AddChild("ProjectItem", item);
    return lists.top()->stage.Step();
}

} // namespace

// A bin that a cancellation cuts short is dropped.
bool TranslateChildren(ImportState& state, ObjectHandle children, ObjectHandle parentItem)
{
    OpenLists lists;
    lists.push(std::make_unique<OpenList>(state.progress, children, parentItem));
    bool goesOn = true;
    while (goesOn && !lists.empty()) {
        const OpenList& list = *lists.top();
        goesOn = list.next != list.end ? TranslateNext(state, lists) : CloseList(lists);
    }
    while (!lists.empty())
        lists.pop(); // stages end from the inside out
    return goesOn;
}

} // namespace XPJ

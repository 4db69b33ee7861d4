#include "import/bins.h"

#include "import/clips.h"
#include "import/logging.h"
#include "import/sequence_walk.h"
#include "project/labels.h"
#include "project/objects.h"

#include <memory>
#include <stack>
#include <string_view>

namespace XPJ {

namespace {

ObjectHandle MakeBinItem(ImportState& state, ConstHandle bin)
{
    const ObjectHandle item = state.document.NewObject("BinProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", bin.GetProperty("name"));
    if (!CopyLabel(state, bin, item, kItemLabel))
        RemarkOnLabel(state, bin, LocationOfClip(state, bin));
    return item;
}

// A clip in two bins has two project items of one master, on purpose.
void TranslateEntry(ImportState& state, ConstHandle entry, ObjectHandle parentItem)
{
    if (entry.GetName() == "clip") {
        if (!TranslateClip(state, entry, parentItem))
            AddSkipped(state, entry, LocationOfClip(state, entry));
    } else if (entry.GetName() == "sequence") {
        TranslateSequence(state, entry, parentItem);
    }
}

std::size_t CountChildren(ConstHandle node)
{
    std::size_t count = 0;
    for ([[maybe_unused]] const ConstHandle& child : node.GetChildren())
        ++count;
    return count;
}

// A list of entries that is being translated, and the item that their items belong to. Bins nest
// far deeper than a thread's stack allows, so the open ones are kept on a stack of these.
struct OpenList {
    OpenList(Progress& progress, ConstHandle entries, ObjectHandle parentItem,
             std::string_view binPath)
        : stage(progress, 1, CountChildren(entries)), next(entries.GetChildren().begin()),
          end(entries.GetChildren().end()), item(parentItem), path(binPath)
    {
    }

    StageScope stage;
    ConstChildRange::Iterator next;
    ConstChildRange::Iterator end;
    ObjectHandle item;
    std::string_view path; // of the bins
};

using OpenLists = std::stack<std::unique_ptr<OpenList>>;

// The next entry of the innermost list. A bin opens its own list, and is counted, and added to its
// parent, when that is done. False when cancelled.
bool TranslateNext(ImportState& state, OpenLists& lists)
{
    OpenList& list = *lists.top();
    const ConstHandle entry = *list.next;
    ++list.next;
    state.bin = list.path;
    if (entry.GetName() != "bin") {
        TranslateEntry(state, entry, list.item);
        return list.stage.Step();
    }
    const ObjectHandle item = MakeBinItem(state, entry);
    lists.push(std::make_unique<OpenList>(
        state.progress, entry.GetChild("children"), item,
        PathOfBin(state.document, list.path, entry.GetProperty("name"))));
    return true;
}

// The same for a list that is done.
bool CloseList(OpenLists& lists)
{
    const ObjectHandle item = lists.top()->item;
    lists.pop();
    if (lists.empty())
        return true;
    lists.top()->item.AddChild("Item", item);
    return lists.top()->stage.Step();
}

} // namespace

// A bin that a cancellation cuts short is dropped.
bool TranslateEntries(ImportState& state, ConstHandle entries, ObjectHandle parentItem)
{
    OpenLists lists;
    lists.push(std::make_unique<OpenList>(state.progress, entries, parentItem, std::string_view()));
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

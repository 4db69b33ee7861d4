#include "import/collect.h"

#include "core/numbers.h"
#include "import/clips.h"
#include "import/multiclips.h"
#include "import/sequences.h"
#include "xmeml/sequences.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace XPJ {

namespace {

// Generated ids: a prefix and the next number that gives an id which the document does not use.
class IdMaker {
public:
    IdMaker(std::string_view prefix, unsigned first) : prefix_(prefix), number_(first) {}

    void Take(std::string_view id) { taken_.insert(id); }
    std::string Make()
    {
        std::string id;
        do
            id = prefix_ + UintToString(number_++);
        while (taken_.contains(id));
        return id;
    }

private:
    std::string prefix_;
    unsigned number_;
    std::unordered_set<std::string_view> taken_;
};

struct Collection {
    // In post-order: a node comes after all its children.
    std::vector<ConstHandle> nodes;
    IdMaker sequenceIds{"sequence-", 0};
    // A "-" would mean a subclip's file, "Slug" at the start a slug.
    IdMaker fileIds{"unnamedfile", 1};
};

using Handler = void (*)(ImportState&, Collection&, ConstHandle);

void CollectFile(ImportState& state, Collection& collection, ConstHandle file)
{
    if (file.HasChildren())
        state.files.Add(FileElement(file),
                        HasValue(file, "id") ? std::string() : collection.fileIds.Make());
}

void CollectSequence(ImportState& state, Collection& collection, ConstHandle sequence)
{
    if (IsStillSequence(sequence))
        return;
    if (!HasValue(sequence, "id"))
        state.sequences.SetGeneratedId(sequence, collection.sequenceIds.Make());
    const std::string_view id = state.sequences.IdOf(sequence);
    if (!state.sequences.MasterOf(id))
        state.sequences.AddMaster(id, MakeSequenceMaster(state, sequence));
}

struct CollectedTag {
    std::string_view tag;
    Handler handle;
};

constexpr CollectedTag kCollectedTags[] = {
    {"clip", [](ImportState& state, Collection&, ConstHandle clip) { CollectClip(state, clip); }},
    {"file", CollectFile},
    {"multiclip", [](ImportState& state, Collection&,
                     ConstHandle multiclip) { CollectMulticlip(state, multiclip); }},
    {"sequence", CollectSequence},
};

Handler HandlerOf(ConstHandle node)
{
    for (const CollectedTag& row : kCollectedTags)
        if (node.GetName() == row.tag)
            return row.handle;
    return nullptr;
}

void Enter(Collection& collection, ConstHandle node)
{
    if (!HandlerOf(node))
        return;
    collection.nodes.push_back(node);
    if (node.GetName() == "sequence")
        collection.sequenceIds.Take(node.GetProperty("id"));
    else if (node.GetName() == "file")
        collection.fileIds.Take(node.GetProperty("id"));
}

// Bound references give nodes several parents, so each is taken where it is met first. The handlers
// run when the walk is over and all ids are known.
Collection Gather(ConstHandle project)
{
    struct Level {
        ConstHandle node;
        ConstChildRange::Iterator next;
    };
    Collection collection;
    NodeSet visited;
    visited.Insert(project);
    std::vector<Level> levels{{project, project.GetChildren().begin()}};
    const ConstChildRange::Iterator end = project.GetChildren().end();
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next != end) {
            const ConstHandle child = *level.next;
            ++level.next;
            if (visited.Insert(child))
                levels.push_back({child, child.GetChildren().begin()});
        } else {
            Enter(collection, level.node);
            levels.pop_back();
        }
    }
    return collection;
}

} // namespace

bool CollectReferences(ImportState& state, ConstHandle project)
{
    Collection collection = Gather(project);
    StageScope stage(state.progress, 1, collection.nodes.size());
    for (const ConstHandle& node : collection.nodes) {
        HandlerOf(node)(state, collection, node);
        if (!stage.Step())
            return false;
    }
    return true;
}

} // namespace XPJ

#include "import/collect.h"

#include "core/numbers.h"
#include "import/master_clips.h"
#include "import/multiclips.h"
#include "import/sequences.h"

#include <unordered_set>

namespace XPJ {

namespace {

// Ids drawn from a running number that keep clear of those that the document uses.
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
    // In post-order: a node comes after all that it holds.
    std::vector<ObjectHandle> nodes;
    IdMaker sequenceIds{"sequence-", 0};
    // A "-" would mark a subclip's file, "Slug" at the start a slug.
    IdMaker fileIds{"unnamedfile", 1};
};

using Handler = void (*)(ImportState&, Collection&, ObjectHandle);

void CollectFile(ImportState& state, Collection& collection, ObjectHandle file)
{
    if (!file.HasChildren())
        return;
    if (!HasValue(file, "id"))
        file.SetProperty("id", collection.fileIds.Make());
    state.files.emplace(file.GetProperty("id"), file);
}

void CollectSequence(ImportState& state, Collection& collection, ObjectHandle sequence)
{
    if (IsStillSequence(sequence))
        return;
    if (!HasValue(sequence, "id"))
        sequence.SetProperty("id", collection.sequenceIds.Make());
    const std::string_view id = sequence.GetProperty("id");
    if (state.sequences.contains(id))
        return;
    if (const ObjectHandle master = MasterOfCollectedSequence(state, sequence))
        state.sequences.emplace(id, master);
}

struct CollectedTag {
    std::string_view tag;
    Handler handle;
};

constexpr CollectedTag kCollectedTags[] = {
    {"clip", [](ImportState& state, Collection&, ObjectHandle clip) { CollectClip(state, clip); }},
    {"file", CollectFile},
    {"multiclip", [](ImportState& state, Collection&,
                     ObjectHandle multiclip) { CollectMulticlip(state, multiclip); }},
    {"sequence", CollectSequence},
};

Handler HandlerOf(ObjectHandle node)
{
    for (const CollectedTag& row : kCollectedTags)
        if (node.GetName() == row.tag)
            return row.handle;
    return nullptr;
}

void Enter(Collection& collection, ObjectHandle node)
{
    if (!HandlerOf(node))
        return;
    collection.nodes.push_back(node);
    if (node.GetName() == "sequence")
        collection.sequenceIds.Take(node.GetProperty("id"));
    else if (node.GetName() == "file")
        collection.fileIds.Take(node.GetProperty("id"));
}

// Bound references make nodes hang in several places, so each is taken where it is met first. The
// handlers change the tree, so they run when the walk is over.
Collection Gather(ObjectHandle project)
{
    struct Level {
        ObjectHandle node;
        ChildRange::Iterator next;
    };
    Collection collection;
    NodeSet visited;
    visited.Insert(project);
    std::vector<Level> levels{{project, project.GetChildren().begin()}};
    const ChildRange::Iterator end = project.GetChildren().end();
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next != end) {
            const ObjectHandle child = *level.next;
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

bool CollectReferences(ImportState& state, ObjectHandle project)
{
    Collection collection = Gather(project);
    StageScope stage(state.progress, 1, collection.nodes.size());
    for (const ObjectHandle& node : collection.nodes) {
        HandlerOf(node)(state, collection, node);
        if (!stage.Step())
            return false;
    }
    return true;
}

} // namespace XPJ

#include "import/collect.h"

#include "core/numbers.h"
#include "core/text_hash.h"
#include "import/clips.h"
#include "import/multiclips.h"
#include "import/sequences.h"
#include "xmeml/sequences.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>
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
    TextSet<> taken_;
};

struct CollectedNode {
    ConstHandle node;
    std::string_view bin; // the path of the bins around it
};

struct Collection {
    // In post-order: a node comes after all its children.
    std::vector<CollectedNode> nodes;
    IdMaker sequenceIds{"sequence-", 0};
    // A "-" would mean a subclip's file, "Slug" at the start a slug.
    IdMaker fileIds{"unnamedfile", 1};
};

using Handler = void (*)(ImportState&, Collection&, ConstHandle);

void CollectFile(ImportState& state, Collection& collection, ConstHandle file)
{
    if (!file.HasChildren())
        return;
    state.files.Add(FileElement(file),
                    HasValue(file, "id") ? std::string() : collection.fileIds.Make());
    const std::string_view path = file.GetProperty("pathurl");
    const std::string_view used = state.files.Resolve(file).GetProperty("pathurl");
    if (!path.empty() && !used.empty() && path != used)
        AddRemark(state.account, RemarkKind::FileTwice, {.bin = state.bin},
                  {.name = file.GetProperty("name"),
                   .id = file.GetProperty("id"),
                   .detail = file.GetProperty("id")});
}

// A document may state one sequence several times.
bool AreSameSequence(ConstHandle a, ConstHandle b)
{
    return a.GetProperty("name") == b.GetProperty("name") &&
           a.GetProperty("duration") == b.GetProperty("duration");
}

void CollectSequence(ImportState& state, Collection& collection, ConstHandle sequence)
{
    if (IsStillSequence(sequence))
        return;
    if (!HasValue(sequence, "id"))
        state.sequences.SetGeneratedId(sequence, collection.sequenceIds.Make());
    const std::string_view id = state.sequences.IdOf(sequence);
    const MasterClipHandle known = state.sequences.MasterOf(id);
    if (!known) {
        state.sequences.AddMaster(id, MakeSequenceMaster(state, sequence));
        return;
    }
    const ConstHandle used = state.sequences.ElementOf(known.Sequence());
    if (sequence.HasChildren() && !AreSameSequence(sequence, used))
        AddRemark(state.account, RemarkKind::SequenceTwice, LocationOfClip(state, sequence),
                  {.name = used.GetProperty("name"), .id = id, .detail = id});
}

struct CollectedTag {
    Name tag;
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

void Enter(Collection& collection, ConstHandle node, std::string_view bin)
{
    if (!HandlerOf(node))
        return;
    collection.nodes.push_back({node, bin});
    if (node.GetName() == "sequence")
        collection.sequenceIds.Take(node.GetProperty("id"));
    else if (node.GetName() == "file")
        collection.fileIds.Take(node.GetProperty("id"));
}

// Bound references give nodes several parents, so each is taken where it is met first. The handlers
// run when the walk is over and all ids are known.
Collection Gather(Document& document, ConstHandle project)
{
    struct Level {
        ConstHandle node;
        ConstChildRange::Iterator next;
        std::string_view bin; // the path of the bins around its children
    };
    std::array<NameId, std::size(kPassedOver)> passedOver;
    std::ranges::transform(kPassedOver, passedOver.begin(), [](Name tag) { return NameId(tag); });
    Collection collection;
    NodeSet visited;
    visited.Insert(project);
    std::vector<Level> levels{{project, project.GetChildren().begin(), {}}};
    const ConstChildRange::Iterator end = project.GetChildren().end();
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next != end) {
            const bool isPassedOver =
                std::ranges::find(passedOver, level.next.EntryId()) != passedOver.end();
            const ConstHandle child = *level.next;
            ++level.next;
            const bool holdsNothing = isPassedOver || (!child.HasChildren() && !HandlerOf(child));
            if (holdsNothing || !visited.Insert(child))
                continue;
            const std::string_view bin =
                child.GetName() == "bin" ? PathOfBin(document, level.bin, child.GetProperty("name"))
                                         : level.bin;
            levels.push_back({child, child.GetChildren().begin(), bin});
        } else {
            Enter(collection, level.node, level.bin);
            levels.pop_back();
        }
    }
    return collection;
}

} // namespace

bool CollectReferences(ImportState& state, ConstHandle project)
{
    Collection collection = Gather(state.document, project);
    StageScope stage(state.progress, 1, collection.nodes.size());
    for (const auto& [node, bin] : collection.nodes) {
        state.bin = bin;
        HandlerOf(node)(state, collection, node);
        if (!stage.Step())
            return false;
    }
    return true;
}

} // namespace XPJ

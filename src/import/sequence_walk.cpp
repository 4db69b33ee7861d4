// The walk through what sequences refer to: every medium and sequence that an item needs is there,
// and has its project item, before the sequence around it is filled.
#include "xmeml/cut_points.h"
#include "import/generators.h"
#include "import/item_issues.h"
#include "import/layered_images.h"
#include "import/master_builder.h"
#include "import/master_clips.h"
#include "xmeml/files.h"
#include "import/multiclip_sequence.h"
#include "import/multiclips.h"
#include "import/project_items.h"
#include "import/sequences.h"
#include "import/tracks.h"

namespace XPJ {

namespace {

// An item of a sequence, in the order in which items are looked at: picture first.
struct TrackReference {
    ObjectHandle item;
    MediaType type = MediaType::Video;
    int trackIndex = 0; // among the project's tracks
    bool exploded = false;
};

// A sequence on the way. Nested sequences are kept on a stack of these, since references let a
// document nest them deeper than its own elements.
struct SequenceWalk {
    ObjectHandle sequence;
    ObjectHandle characteristics; // of its picture
    SequenceClock clock;
    std::vector<TrackReference> references;
    std::size_t next = 0;
};

void AddReferences(ObjectHandle medium, MediaType type, SequenceWalk& walk)
{
    const bool exploded = IsTrue(medium, "explodedTracks");
    int index = 0;
    for (const ObjectHandle& track : medium.GetChildren("track")) {
        for (const ObjectHandle& item : track.GetChildren())
            if (item.GetName() == "clipitem" || item.GetName() == "generatoritem")
                walk.references.push_back({item, type, index, exploded});
        if (type == MediaType::Video || !IsContinuationTrack(track))
            ++index;
    }
}

// Masters of the items on exploded tracks keep their channels together.
void MarkExploded(ObjectHandle sequence, ObjectHandle media)
{
    if (!IsTrue(sequence, "explodedTracks"))
        return;
    for (const ObjectHandle& node : {media, media.GetChild("video"), media.GetChild("audio")})
        node.SetPropertyShared("explodedTracks", "true");
}

SequenceWalk BeginWalk(const ImportState& state, ObjectHandle sequence)
{
    const ObjectHandle media = sequence.GetChild("media");
    MarkExploded(sequence, media);
    SequenceWalk walk;
    walk.sequence = sequence;
    walk.characteristics = CharacteristicsOf(sequence);
    walk.clock = ClockOf(state, sequence);
    NormaliseSequence(sequence, walk.clock.edges);
    AddReferences(media.GetChild("video"), MediaType::Video, walk);
    AddReferences(media.GetChild("audio"), MediaType::Audio, walk);
    return walk;
}

// A title's carrier stands in a bin only if it is a clip of its own there.
bool NeedsProjectItem(ObjectHandle file)
{
    return file.GetProperty("mediaSource") != "GraphicAndType";
}

void TranslateFileReference(ImportState& state, const SequenceWalk& walk,
                            const TrackReference& reference, ObjectHandle file,
                            ObjectHandle parentItem)
{
    const ObjectHandle item = reference.item;
    const std::string_view masterClipId = item.GetProperty("masterclipid");
    const std::string_view fileId = file.GetProperty("id");
    const ObjectHandle fallback = walk.characteristics;
    if (state.masterClips.Find(masterClipId, fileId, 0, MediaType::Video))
        return;
    if (IsSlug(file))
        return TranslateSlugItem(state, item, file, parentItem, fallback);
    if (IsLayeredImage(file)) {
        // Registered layer by layer, so that the lookup above may miss it for ever.
        if (state.layeredImages.emplace(masterClipId, fileId).second)
            TranslateLayeredItem(state, item, file, parentItem, fallback);
        return;
    }
    if (!state.masterClips.Find(masterClipId, fileId, 0, MediaType::Audio))
        MasterClipForTrackItem(state, item, file, parentItem, fallback, reference.exploded,
                               NeedsProjectItem(file));
}

void TranslateMulticlipReference(ImportState& state, ObjectHandle item, ObjectHandle parentItem)
{
    const ObjectHandle multiclip = item.GetChild("multiclip");
    if (!multiclip || IsCollapsed(multiclip))
        return;
    const auto master = state.multiclips.find(multiclip.GetProperty("id"));
    if (master != state.multiclips.end() && !HasValue(SequenceOf(master->second), "uid"))
        TranslateMulticlipItem(state, item, parentItem);
}

// The `sequence` or `multiclip` behind a Sequence; null for one that the import made up.
ObjectHandle ElementOf(const ImportState& state, ObjectHandle projectSequence)
{
    const auto element = state.sequenceElements.find(projectSequence.UniqueId());
    return element != state.sequenceElements.end() ? element->second : ObjectHandle();
}

// The `sequence` that an item without a file shows, if it is not filled yet.
ObjectHandle UnfilledSequenceOf(const ImportState& state, const TrackReference& reference)
{
    const ObjectHandle shown =
        SequenceOf(MasterForItem(state, reference.item, reference.type, reference.trackIndex));
    if (!shown || HasValue(shown, "uid"))
        return {};
    const ObjectHandle element = ElementOf(state, shown);
    return element.GetName() == "sequence" ? element : ObjectHandle();
}

void TranslateGeneratorReference(ImportState& state, const SequenceWalk& walk,
                                 const TrackReference& reference, ObjectHandle parentItem)
{
    const ObjectHandle item = reference.item;
    const std::string_view id = item.GetProperty("id");
    if (id.empty() ||
        state.masterClips.Find(item.GetProperty("masterclipid"), id, 0, MediaType::Video))
        return;
    const GeneratorResult result = TranslateGenerator(state, item, walk.sequence);
    if (!result.translated && state.reportedGenerators.insert(item.UniqueId()).second)
        AddItemIssue(state,
                     PlaceOfItem(walk.clock, item, reference.type, reference.trackIndex,
                                 Int64Property(item, "start")),
                     ImportIssue::GeneratorNotTranslated2,
                     item.GetChild("effect").GetProperty("name"));
    if (!result.master || !result.needsProjectItem)
        return;
    const ObjectHandle projectItem = MakeClipProjectItem(state, item, result.master, parentItem);
    projectItem.SetPropertyShared("id", id);
}

// What an item refers to; the sequence that has to be translated first, if there is one.
ObjectHandle TranslateReference(ImportState& state, const SequenceWalk& walk,
                                const TrackReference& reference, ObjectHandle parentItem)
{
    if (reference.item.GetName() == "generatoritem") {
        TranslateGeneratorReference(state, walk, reference, parentItem);
        return {};
    }
    if (reference.item.HasChild("multiclip"))
        TranslateMulticlipReference(state, reference.item, parentItem);
    if (const ObjectHandle file = FileOfItem(state, reference.item)) {
        TranslateFileReference(state, walk, reference, file, parentItem);
        return {};
    }
    return UnfilledSequenceOf(state, reference);
}

// Fills the Sequence and makes its project item.
void FinishSequence(ImportState& state, ObjectHandle sequence, ObjectHandle parentItem)
{
    const auto master = state.sequences.find(sequence.GetProperty("id"));
    if (master == state.sequences.end() || !FillSequence(state, sequence, master->second))
        return;
    const ObjectHandle item = MakeClipProjectItem(state, sequence, master->second, parentItem);
    item.SetPropertyShared("id", sequence.GetProperty("id"));
}

} // namespace

void TranslateSequence(ImportState& state, ObjectHandle sequence, ObjectHandle parentItem)
{
    std::vector<SequenceWalk> walks;
    const auto begin = [&](ObjectHandle element) {
        if (state.begunSequences.Insert(element))
            walks.push_back(BeginWalk(state, element));
    };
    begin(sequence);
    while (!walks.empty()) {
        SequenceWalk& walk = walks.back();
        if (walk.next == walk.references.size()) {
            FinishSequence(state, walk.sequence, parentItem);
            walks.pop_back();
            continue;
        }
        const TrackReference reference = walk.references[walk.next++];
        if (const ObjectHandle nested = TranslateReference(state, walk, reference, parentItem)) {
            if (state.progress.IsCancelled())
                return;
            begin(nested);
        }
    }
}

void TranslateShownSequences(ImportState& state, ObjectHandle rootItem)
{
    // What is filled here may show more of them.
    for (std::size_t i = 0; i < state.shownSequences.size(); ++i) {
        const ObjectHandle shown = state.shownSequences[i];
        const ObjectHandle element = ElementOf(state, shown);
        if (element.GetName() == "multiclip")
            FillMulticlipSequence(state, element, shown, rootItem);
        else if (!HasValue(shown, "uid"))
            TranslateSequence(state, element, rootItem);
        BeginSequence(state, shown); // what refers to it needs its `uid`
    }
}

} // namespace XPJ

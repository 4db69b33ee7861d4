#include "import/sequence_walk.h"

#include "import/generators.h"
#include "import/layered_images.h"
#include "import/masters.h"
#include "import/multiclips.h"
#include "import/project_items.h"
#include "import/sequences.h"
#include "import/slugs.h"
#include "import/track_context.h"
#include "xmeml/cut_points.h"
#include "xmeml/tracks.h"

#include <cstdint>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace XPJ {

namespace {

// An item of a sequence, in the order in which items are looked at: video first.
struct TrackReference {
    const ClipItem* item = nullptr;
    MediaType type = MediaType::Video;
    int trackIndex = 0; // among the project's tracks
};

// A sequence whose references are being translated. Nested sequences are kept on a stack of these,
// since references let a document nest them deeper than its own elements.
struct SequenceWalk {
    ConstHandle sequence;
    ConstHandle characteristics; // of its video
    SequenceTimecode timecode;
    SequenceItems items;
    std::vector<TrackReference> references; // into `items`
    std::size_t next = 0;
};
// Moving keeps the references, copying would not.
static_assert(std::is_nothrow_move_constructible_v<SequenceWalk>);

void AddReferences(ConstHandle group, MediaType type,
                   const std::vector<std::vector<ClipItem>>& tracks, SequenceWalk& walk)
{
    int index = 0;
    auto items = tracks.begin();
    for (const ConstHandle& track : group.GetChildren("track")) {
        for (const ClipItem& item : *items++)
            walk.references.push_back({&item, type, index});
        if (type == MediaType::Video || !IsContinuationTrack(track))
            ++index;
    }
}

SequenceWalk BeginWalk(const ImportOptions& options, ConstHandle sequence)
{
    const SequenceRates rates = RatesOfSequence(sequence, options.sn2vlMode);
    SequenceWalk walk{
        .sequence = sequence,
        .characteristics = CharacteristicsOf(sequence),
        .timecode = TimecodeOfSequence(sequence, rates),
        .items = ItemsOfSequence(sequence, {rates.edges, options.settings.openInterchange}),
        .references = {}};
    const ConstHandle media = sequence.GetChild("media");
    AddReferences(media.GetChild("video"), MediaType::Video, walk.items.video, walk);
    AddReferences(media.GetChild("audio"), MediaType::Audio, walk.items.audio, walk);
    return walk;
}

// The media of a title is in a bin only if it is a clip of its own there.
bool NeedsProjectItem(FileElement file)
{
    return file.GetProperty("mediaSource") != "GraphicAndType";
}

void TranslateFileReference(ImportState& state, const SequenceWalk& walk, const ClipItem& item,
                            FileElement file, ObjectHandle parentItem)
{
    const MasterRegistry& registry = state.masters.registry;
    const std::string_view masterClipId = item.GetProperty("masterclipid");
    const std::string_view fileId = state.files.IdOf(file);
    const FileUse use{item, file, walk.characteristics};
    if (registry.Find({masterClipId, fileId}))
        return;
    if (file.IsSlug())
        return TranslateSlug(state, item, use, parentItem);
    if (file.IsLayeredImage()) {
        // Registered layer by layer, so that the lookup above may never find it.
        if (state.masters.BeginLayers(masterClipId, fileId))
            TranslateLayers(state, item, use, parentItem);
        return;
    }
    if (registry.Find({masterClipId, fileId, 0, MediaType::Audio}))
        return;
    const FileMaster built = BuildFileMaster(state, item, use, IsExploded(walk.sequence));
    if (built.isNew && NeedsProjectItem(file))
        MakeClipProjectItem(state, item, built.master, parentItem);
}

void TranslateMulticlipReference(ImportState& state, ConstHandle item, ObjectHandle parentItem)
{
    const ConstHandle multiclip = item.GetChild("multiclip");
    if (!multiclip || IsCollapsed(multiclip))
        return;
    const MasterClipHandle master = state.masters.OfMulticlip(multiclip.GetProperty("id"));
    if (master && !state.sequences.HasBegun(master.Sequence()))
        TranslateMulticlipItem(state, item, parentItem);
}

// The `sequence` that an item without a file shows, if it is not filled yet.
ConstHandle UnfilledSequenceOf(const ImportState& state, const TrackReference& reference)
{
    const ObjectHandle shown =
        MasterForItem(state, *reference.item, reference.type, reference.trackIndex).Sequence();
    if (!shown || state.sequences.HasBegun(shown))
        return {};
    const ConstHandle element = state.sequences.ElementOf(shown);
    return element.GetName() == "sequence" ? element : ConstHandle();
}

void TranslateGeneratorReference(ImportState& state, const SequenceWalk& walk,
                                 const TrackReference& reference, ObjectHandle parentItem)
{
    const ClipItem& item = *reference.item;
    const std::string_view id = item.GetProperty("id");
    if (id.empty() || state.masters.registry.Find({item.GetProperty("masterclipid"), id}))
        return;
    const GeneratorResult result = TranslateGenerator(state, item, walk.sequence);
    const auto locate = [&] {
        return LocationOfIssue(
            walk.timecode, item.GetProperty("name"),
            {reference.type, reference.trackIndex, item.times.start.value, item.times.end.value});
    };
    if (!result.translated && state.generators.Report(item))
        AddItemIssue(state, locate(), ImportIssue::GeneratorNotTranslated2,
                     item.GetChild("effect").GetProperty("name"));
    if (result.isNew)
        RemarkOnGenerator(state, item, result, locate());
    if (result.master && result.needsProjectItem)
        MakeClipProjectItem(state, item, result.master, parentItem);
}

// What an item refers to; the sequence that has to be translated first, if there is one.
ConstHandle TranslateReference(ImportState& state, const SequenceWalk& walk,
                               const TrackReference& reference, ObjectHandle parentItem)
{
    const ClipItem& item = *reference.item;
    if (item.GetName() == "generatoritem") {
        TranslateGeneratorReference(state, walk, reference, parentItem);
        return {};
    }
    if (item.HasChild("multiclip"))
        TranslateMulticlipReference(state, item, parentItem);
    if (const FileElement file = FileOfItem(state.files, item)) {
        TranslateFileReference(state, walk, item, file, parentItem);
        return {};
    }
    return UnfilledSequenceOf(state, reference);
}

// Fills the Sequence and makes its project item.
void FinishSequence(ImportState& state, const SequenceWalk& walk, ObjectHandle parentItem)
{
    const MasterClipHandle master = state.sequences.MasterOf(state.sequences.IdOf(walk.sequence));
    if (!master)
        AddRemark(state.account, RemarkKind::SequenceAsStill, LocationOfClip(state, walk.sequence));
    if (master && FillSequence(state, walk.sequence, walk.items, master))
        MakeClipProjectItem(state, walk.sequence, master, parentItem);
}

} // namespace

void TranslateSequence(ImportState& state, ConstHandle sequence, ObjectHandle parentItem)
{
    std::vector<SequenceWalk> walks;
    std::unordered_set<std::uint64_t> open; // the sequences of the walks
    const auto begin = [&](ConstHandle element) {
        if (state.sequences.BeginElement(element)) {
            walks.push_back(BeginWalk(state.options, element));
            open.insert(element.UniqueId());
        }
    };
    begin(sequence);
    while (!walks.empty()) {
        SequenceWalk& walk = walks.back();
        if (walk.next == walk.references.size()) {
            FinishSequence(state, walk, parentItem);
            open.erase(walk.sequence.UniqueId());
            walks.pop_back();
            continue;
        }
        const TrackReference reference = walk.references[walk.next++];
        if (const ConstHandle nested = TranslateReference(state, walk, reference, parentItem)) {
            if (state.progress.IsCancelled())
                return;
            if (open.contains(nested.UniqueId()))
                state.sequences.AddCircle(*reference.item);
            begin(nested);
        }
    }
}

void TranslateShownSequences(ImportState& state, ObjectHandle rootItem)
{
    // What is filled here may show more of them.
    for (std::size_t i = 0; i < state.sequences.Shown().size(); ++i) {
        const ObjectHandle shown = state.sequences.Shown()[i];
        const ConstHandle element = state.sequences.ElementOf(shown);
        if (element.GetName() == "multiclip")
            FillMulticlipSequence(state, element, shown, rootItem);
        else if (!state.sequences.HasBegun(shown))
            TranslateSequence(state, element, rootItem);
        state.sequences.Begin(shown); // what refers to it needs its `uid`
    }
}

} // namespace XPJ

#include "import/item_effects.h"

#include "core/numbers.h"
#include "effects/values.h"
#include "effects/video_chain.h"
#include "xmeml/formats.h"
#include "import/titles.h"
#include "import/item_issues.h"
#include "import/master_builder.h"
#include "xmeml/files.h"
#include "project/streams.h"

#include <algorithm>

namespace XPJ {

namespace {

// Ticks a frame of the one that owns a filter, else of the picture of its master; 0 if nobody
// states a rate. Pictures that fit any frame count in frames of `anyFrameTicks`.
Ticks FilterTicks(ObjectHandle owner, ObjectHandle master, Ticks anyFrameTicks)
{
    Ticks ticks = kNtscFrameTicks;
    if (const ObjectHandle rate = owner.GetChild("rate")) {
        RateTicks(rate, &ticks);
        return ticks;
    }
    ticks = Int64Property(VideoClipOf(master), "FrameRate");
    return ticks == kAnyFrameTicks ? anyFrameTicks : ticks;
}

// The frame of a nested sequence, `unknown` for one that is not filled yet.
FrameSize FrameOfGroup(ObjectHandle sequence, const FrameSize& unknown)
{
    for (const ObjectHandle& group : sequence.GetChildren("TrackGroup"))
        if (group.GetName() == "VideoTrackGroup")
            return ParseFrameSize(group.GetProperty("FrameRect"),
                                  group.GetProperty("PixelAspectRatio"));
    return unknown;
}

FileNote MakeFileNote(ObjectHandle file)
{
    const ObjectHandle media = file.GetChild("media");
    FileNote note{.picture = FindPath(media, {"video", "samplecharacteristics"}),
                  .sound = FindPath(media, {"audio", "samplecharacteristics"})};
    const int width = IntProperty(note.picture, "width");
    const int height = IntProperty(note.picture, "height");
    const int recordedWidth = ParseInt(MetadataOf(file, "com.red.clip.imageWidth").value_or(""));
    const int recordedHeight = ParseInt(MetadataOf(file, "com.red.clip.imageHeight").value_or(""));
    if (width > 0 && height > 0 && recordedWidth > 0 && recordedHeight > 0) {
        note.decodedWidthRatio = static_cast<double>(width) / recordedWidth;
        note.decodedHeightRatio = static_cast<double>(height) / recordedHeight;
    }
    return note;
}

const FileNote& NoteOfFile(ImportState& state, ObjectHandle file)
{
    const auto [entry, isNew] = state.fileNotes.try_emplace(file.UniqueId());
    if (isNew)
        entry->second = MakeFileNote(file);
    return entry->second;
}

// The frame that a document states for an item of a file. What it leaves open is no reason to move
// or stretch a picture.
FrameSize FrameOfFileItem(ObjectHandle item, const FileNote& file, const FrameSize& unknown)
{
    const std::string_view aspect = StatedAspect(file.picture, item);
    FrameSize size = aspect.empty() ? unknown : ParseFrameSize({}, aspect);
    size.width = IntProperty(file.picture, "width");
    size.height = IntProperty(file.picture, "height");
    return size;
}

// The frame of what an item without a file shows; without a size for pictures that fit any frame.
FrameSize FrameOfMaster(ObjectHandle master, const FrameSize& unknown)
{
    const ObjectHandle clip = VideoClipOf(master);
    if (Int64Property(clip, "FrameRate") == kAnyFrameTicks)
        return unknown;
    const ObjectHandle stream = FindPath(clip, {"Source", "Media", "VideoStream"});
    const Name aspect =
        IsTrue(stream, "IsPAROverridden") ? Name("OverriddenPAR") : Name("OriginalPAR");
    return ParseFrameSize(stream.GetProperty("FrameRect"), stream.GetProperty(aspect));
}

void SetFrames(const TrackContext& track, ObjectHandle item, ObjectHandle master,
               EffectContext& context)
{
    context.sequenceFrame = ParseFrameSize(track.sequence.frameRect, track.sequence.aspect);
    const FrameSize unknown{.pixelAspect = context.sequenceFrame.pixelAspect};
    const ObjectHandle file = FileOfItem(track.sequence.state, item);
    const FileNote note = file ? NoteOfFile(track.sequence.state, file) : FileNote();
    if (const ObjectHandle sequence = SequenceOf(master))
        context.clipFrame = FrameOfGroup(sequence, unknown);
    else if (file)
        context.clipFrame = FrameOfFileItem(item, note, unknown);
    else
        context.clipFrame = FrameOfMaster(master, unknown);
    context.decodedWidthRatio = note.decodedWidthRatio;
    context.decodedHeightRatio = note.decodedHeightRatio;
}

// Ticks a sample of the sound of an item.
Ticks SampleTicksOf(ImportState& state, ObjectHandle item)
{
    const ObjectHandle file = FileOfItem(state, item);
    const std::int64_t samples =
        file ? Int64Property(NoteOfFile(state, file).sound, "samplerate") : 0;
    return samples > 0 ? std::max<Ticks>(kTicksPerSecond / samples, 1) : kSampleTicks48k;
}

LookFiles* LookFilesOf(ImportState& state)
{
    return state.lookFiles ? &*state.lookFiles : nullptr;
}

} // namespace

EffectContext ContextOfItem(const TrackContext& track, ObjectHandle item, ObjectHandle master,
                            Frames start)
{
    const SequenceContext& sequence = track.sequence;
    EffectContext context{.document = sequence.state.document,
                          .issues = sequence.state.issues,
                          .place =
                              PlaceOfItem(sequence.clock, item, track.type, track.index, start)};
    context.frameTicks = FilterTicks(item, master, sequence.rates.video);
    context.lookFiles = LookFilesOf(sequence.state);
    if (track.type == MediaType::Video) {
        SetFrames(track, item, master, context);
    } else {
        if (context.frameTicks == 0)
            context.frameTicks = sequence.rates.edges;
        context.sampleTicks = SampleTicksOf(sequence.state, item);
    }
    return context;
}

ObjectHandle MakeItemVideoChain(const TrackContext& track, ObjectHandle item, Frames start,
                                ObjectHandle subClip)
{
    const ObjectHandle master = subClip.GetChild("MasterClip");
    const EffectContext context = ContextOfItem(track, item, master, start);
    const ObjectHandle title =
        TitleOfItem(track.sequence.state, item, context.sequenceFrame, master);
    return BuildSequenceChain(context, item, subClip, IntToString(track.sequence.number), title);
}

void AddMasterEffects(ImportState& state, ObjectHandle element, ObjectHandle file,
                      ObjectHandle master)
{
    const ObjectHandle chain = master.GetChild("VideoComponentChain");
    if (!chain)
        return;
    // The filters of a track item are its own, whichever master it brings.
    const ObjectHandle clip = element.GetName() == "clip" ? element : ObjectHandle();
    const ItemPlace place{.clip = element.GetProperty("name")};
    for (const ObjectHandle& owner : {clip, file}) {
        const Ticks frameTicks = FilterTicks(owner, master, kNtscFrameTicks);
        const EffectContext context{.document = state.document,
                                    .issues = state.issues,
                                    .place = place,
                                    .frameTicks = frameTicks,
                                    .lookFiles = LookFilesOf(state)};
        AddMasterChainEffects(context, owner, chain);
    }
}

} // namespace XPJ

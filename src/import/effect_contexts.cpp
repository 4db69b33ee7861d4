#include "import/effect_contexts.h"

#include "core/frame_rate.h"
#include "effects/video_chain.h"
#include "project/media.h"
#include "xmeml/formats.h"

#include <algorithm>

namespace XPJ {

namespace {

// Ticks a frame of the owner of a filter, else of the video of its master; 0 if neither states a
// rate. Video that fits any frame counts in frames of `anyFrameTicks`.
Ticks FilterTicks(ConstHandle owner, BuiltMaster master, Ticks anyFrameTicks)
{
    if (const ConstHandle rate = owner.GetChild("rate")) {
        Ticks ticks = kNtscFrameTicks;
        FrameTicks(Int64Property(rate, "timebase"), IsTrue(rate, "ntsc"), &ticks);
        return ticks;
    }
    const Ticks ticks = Int64Property(master.VideoClip(), "FrameRate");
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

// The frame that a document states for an item of a file. What it doesn't state is no reason to
// move or stretch the video.
FrameSize FrameOfFileItem(ConstHandle item, const FileFormat& file, const FrameSize& unknown)
{
    const std::string_view aspect = StatedAspect(file.video, item);
    FrameSize size = aspect.empty() ? unknown : ParseFrameSize({}, aspect);
    size.width = IntProperty(file.video, "width");
    size.height = IntProperty(file.video, "height");
    return size;
}

// The frame of what an item without a file shows; without a size for video that fits any frame.
FrameSize FrameOfMaster(BuiltMaster master, const FrameSize& unknown)
{
    const ObjectHandle clip = master.VideoClip();
    if (Int64Property(clip, "FrameRate") == kAnyFrameTicks)
        return unknown;
    const ObjectHandle stream = FindPath(clip, {"Source", "Media", "VideoStream"});
    const Name aspect =
        IsTrue(stream, "IsPAROverridden") ? Name("OverriddenPAR") : Name("OriginalPAR");
    return ParseFrameSize(stream.GetProperty("FrameRect"), stream.GetProperty(aspect));
}

void SetFrames(const TrackContext& track, ConstHandle item, BuiltMaster master,
               EffectContext& context)
{
    Import& import = track.sequence.import;
    const FrameFormat& frame = track.sequence.frame;
    context.sequenceFrame = ParseFrameSize(frame.rect, frame.par);
    const FrameSize unknown{.pixelAspect = context.sequenceFrame.pixelAspect};
    const FileElement file = FileOfItem(import.files, item);
    const FileFormat format = file ? import.fileFormats.Of(file) : FileFormat();
    if (const ObjectHandle sequence = master.Sequence())
        context.clipFrame = FrameOfGroup(sequence, unknown);
    else if (file)
        context.clipFrame = FrameOfFileItem(item, format, unknown);
    else
        context.clipFrame = FrameOfMaster(master, unknown);
    context.decodedWidthRatio = format.decodedWidthRatio;
    context.decodedHeightRatio = format.decodedHeightRatio;
}

// Ticks a sample of the audio of an item.
Ticks SampleTicksOf(Import& import, ConstHandle item)
{
    const FileElement file = FileOfItem(import.files, item);
    const std::int64_t samples =
        file ? Int64Property(import.fileFormats.Of(file).audio, "samplerate") : 0;
    return samples > 0 ? std::max<Ticks>(kTicksPerSecond / samples, 1) : kSampleTicks48k;
}

} // namespace

EffectContext ContextOfItem(const TrackContext& track, const ClipItem& item, BuiltMaster master,
                            Frames start)
{
    const SequenceContext& sequence = track.sequence;
    Import& import = sequence.import;
    EffectContext context{.document = import.document,
                          .issues = import.issues,
                          .location = LocationOfItem(track, item.GetProperty("name"), start)};
    context.frameTicks = FilterTicks(item, master, sequence.rates.video);
    context.lookFiles = &import.lookFiles;
    if (track.type == MediaType::Video) {
        SetFrames(track, item, master, context);
    } else {
        if (context.frameTicks == 0)
            context.frameTicks = sequence.rates.edges;
        context.sampleTicks = SampleTicksOf(import, item);
    }
    return context;
}

void AddMasterEffects(Import& import, ConstHandle element, FileElement file, BuiltMaster master)
{
    const ObjectHandle chain = master.GetChild("VideoComponentChain");
    if (!chain)
        return;
    // The filters of a track item are its own, whichever master it brings.
    const ConstHandle clip = element.GetName() == "clip" ? element : ConstHandle();
    const ItemLocation location{.clip = element.GetProperty("name")};
    const ConstHandle ownFile = file;
    for (const ConstHandle& owner : {clip, ownFile}) {
        const Ticks frameTicks = FilterTicks(owner, master, kNtscFrameTicks);
        const EffectContext context{.document = import.document,
                                    .issues = import.issues,
                                    .location = location,
                                    .frameTicks = frameTicks,
                                    .lookFiles = &import.lookFiles};
        AddMasterChainEffects(context, owner, chain);
    }
}

} // namespace XPJ

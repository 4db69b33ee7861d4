#include "import/streams.h"

#include "import/audio_streams.h"
#include "xmeml/formats.h"
#include "xmeml/files.h"
#include "xmeml/subclips.h"
#include "project/synthetic_media.h"

#include <algorithm>

namespace XPJ {

namespace {

// Ticks a frame: of the element, else of the first file of its media, else of the file in hand.
Ticks FrameTicksOf(const ImportState& state, ObjectHandle element, ObjectHandle file)
{
    for (const ObjectHandle& node : {element, FirstFileOf(state, element), file})
        if (const Ticks ticks = TicksOfRate(node.GetChild("rate")))
            return ticks;
    return 0;
}

StreamRange RangeOf(const ImportState& state, ObjectHandle element, ObjectHandle file,
                    Ticks frameTicks)
{
    const ObjectHandle timed = HasValue(file, "duration") ? file : element;
    StreamRange range;
    const std::int64_t frames = std::max<std::int64_t>(Int64Property(timed, "duration"), 0);
    range.duration = MultiplyTicks(frames, frameTicks);
    const SubclipRange part = ReadSubclipInfo(state, element);
    if (part.IsKnown())
        range.boundaries = {MultiplyTicks(part.start, frameTicks),
                            MultiplyTicks(part.end, frameTicks), part.hard && !state.aafSupport};
    return range;
}

void AddVideoStream(const ImportState& state, ObjectHandle element, ObjectHandle file,
                    const FrameFormat& frame, Ticks frameTicks, const StreamRange& range,
                    FileSources& sources)
{
    const ObjectHandle video = FindPath(file, {"media", "video"});
    const std::string_view dominance =
        video.GetChild("samplecharacteristics").GetProperty("fielddominance");
    const ObjectHandle media = MakeMedia(state, file);
    media.AddChild("VideoStream",
                   MakeVideoStream(state.document, {.frameTicks = frameTicks,
                                                    .duration = range.duration,
                                                    .frame = frame,
                                                    .fieldType = FieldTypeOf(dominance),
                                                    .isStill = IsTrue(video, "stillframe") ||
                                                               IsTrue(element, "stillframe")}));
    const ObjectHandle source = MakeMediaSource(state.document, MediaType::Video, media, frameTicks,
                                                range.duration, range.boundaries);
    CopyProperty(media, "VelaCodec", source, "VelaCodec");
    sources.video.push_back(source);
}

// Pictures that the host makes run on without a rate too.
FileSources SyntheticSources(const ImportState& state, SyntheticKind kind, Ticks frameTicks,
                             const FrameFormat& frame)
{
    return MakeSyntheticSources(state, kind, frameTicks != 0 ? frameTicks : kNtscFrameTicks, frame);
}

} // namespace

ObjectHandle FileSources::VideoMedia() const
{
    return video.empty() ? ObjectHandle() : video.front().GetChild("Media");
}

FileSources AddFileStreams(const ImportState& state, ObjectHandle element, ObjectHandle file,
                           ObjectHandle fallback)
{
    const Ticks frameTicks = FrameTicksOf(state, element, file);
    const FrameFormat frame = FrameOfFile(element, file, fallback);
    if (IsBarsAndTone(file))
        return SyntheticSources(state, SyntheticKind::BarsAndTone, frameTicks, frame);
    if (IsGraphic(file))
        return SyntheticSources(state, SyntheticKind::Graphic, frameTicks, frame);

    FileSources sources;
    const ObjectHandle media = file.GetChild("media");
    if (frameTicks == 0 || !media)
        return sources;
    const StreamRange range = RangeOf(state, element, file, frameTicks);
    if (media.HasChild("video"))
        AddVideoStream(state, element, file, frame, frameTicks, range, sources);
    if (media.HasChild("audio"))
        AddAudioStreams(state, file, range, sources);
    return sources;
}

} // namespace XPJ

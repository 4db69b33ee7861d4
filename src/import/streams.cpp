#include "import/streams.h"

#include "core/numbers.h"
#include "import/audio_streams.h"
#include "import/media.h"
#include "project/pixel_aspects.h"
#include "project/synthetic_media.h"
#include "xmeml/formats.h"
#include "xmeml/rates.h"
#include "xmeml/subclips.h"

#include <algorithm>

namespace XPJ {

namespace {

// Ticks a frame: of the element, else of the first file of its media, else of the file itself.
Ticks FrameTicksOf(const FileCatalog& files, const FileUse& use)
{
    const ConstHandle first = FirstFileOf(files, use.element);
    const ConstHandle own = use.file;
    for (const ConstHandle& node : {use.element, first, own})
        if (const Ticks ticks = TicksOfRate(node.GetChild("rate")))
            return ticks;
    return 0;
}

// Duration and boundaries that video and audio of the file have in common.
SourceFields RangeOf(const ImportState& state, const FileCatalog& files, const FileUse& use,
                     Ticks frameTicks)
{
    const std::string_view stated = HasValue(use.file, "duration")
                                        ? use.file.GetProperty("duration")
                                        : use.element.GetProperty("duration");
    SourceFields range;
    range.duration = MultiplyTicks(std::max<std::int64_t>(ParseInt64(stated), 0), frameTicks);
    const SubclipRange part = ReadSubclipInfo(files, use.element);
    if (part.IsKnown()) {
        range.start = MultiplyTicks(part.start, frameTicks);
        range.end = MultiplyTicks(part.end, frameTicks);
        range.hard = part.hard && !state.options.aafSupport;
    }
    return range;
}

void AddVideoStream(const ImportState& state, const FileUse& use, const FrameFormat& frame,
                    const SourceFields& range, MediaSources& sources)
{
    const ConstHandle video = FindPath(use.file, {"media", "video"});
    const ConstHandle characteristics = video.GetChild("samplecharacteristics");
    const ObjectHandle media = MakeMediaOfFile(state, use.file);
    media.AddChild(
        "VideoStream",
        MakeVideoStream(
            state.document,
            {.frameTicks = range.rate,
             .duration = range.duration,
             .frame = frame,
             .fieldType = FieldTypeOf(characteristics.GetProperty("fielddominance")),
             .isStill = IsTrue(video, "stillframe") || IsTrue(use.element, "stillframe")}));
    sources.video.push_back(MakeMediaSource(state.document, media, range));
    sources.codec = characteristics.GetProperty("VelaCodec");
}

} // namespace

MediaSources MakeFileSources(const ImportState& state, const FileCatalog& files, const FileUse& use)
{
    const Ticks frameTicks = FrameTicksOf(files, use);
    const FrameFormat frame = FrameOfFile(use.element, use.file, use.characteristics);
    if (use.file.IsBarsAndTone() || use.file.IsGraphic())
        return MakeSyntheticSources(state.document,
                                    use.file.IsGraphic() ? SyntheticKind::Graphic
                                                         : SyntheticKind::BarsAndTone,
                                    // generated video runs on without a rate too
                                    frameTicks != 0 ? frameTicks : kNtscFrameTicks, frame);

    MediaSources sources;
    const ConstHandle media = use.file.GetChild("media");
    if (frameTicks == 0 || !media)
        return sources;
    SourceFields range = RangeOf(state, files, use, frameTicks);
    range.rate = frameTicks;
    if (media.HasChild("video"))
        AddVideoStream(state, use, frame, range, sources);
    if (media.HasChild("audio"))
        AddAudioStreams(state, use.file, range, sources);
    return sources;
}

} // namespace XPJ

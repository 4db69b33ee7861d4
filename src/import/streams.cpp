#include "import/streams.h"

#include "core/channel_types.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/video_formats.h"
#include "project/synthetic_media.h"
#include "tree/blob.h"
#include "xmeml/file_audio.h"
#include "xmeml/flags.h"
#include "xmeml/formats.h"
#include "xmeml/rates.h"
#include "xmeml/subclips.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

// ---- Media

// The host keeps these settings as UTF-16 text, escaped twice in the document.
void AddImporterPrefs(FileElement file, ObjectHandle media)
{
    const std::string_view data =
        FindPath(file, {"media", "video"}).GetProperty("MediaAssociationData");
    std::string bytes;
    for (const char16_t unit : ToUTF16(UnescapeXML(UnescapeXML(data)))) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", bytes);
}

// A new Media without streams.
ObjectHandle MakeMediaOfFile(const ImportState& state, FileElement file)
{
    const std::string path = PathOfFile(file, state.folder);
    const ObjectHandle media = MakeMedia(state.document, {.path = path, .title = file.Title()});
    AddImporterPrefs(file, media);
    return media;
}

// ---- Audio

// How one `audio` element is split.
struct Split {
    int kind = kMono;
    int streams = 1;
    int channels = 1;    // of each stream, where the kind leaves it open
    bool isLast = false; // later `audio` elements are skipped
};

// For the audio hand-off each file is one stream of a plain kind.
Split HandOffSplit(int channels)
{
    const int kind = channels == 2 ? kStereo : channels == 6 ? kSurround51 : kMono;
    return {.kind = kind, .isLast = true};
}

Split PairSplit(int audioCount)
{
    return {.kind = kStereoPair, .streams = audioCount / 2, .isLast = true};
}

Split OrdinarySplit(ConstHandle audio, int channels, int audioCount)
{
    switch (channels) {
    case 0:
        return audio.HasChildren() ? Split{.streams = 0} : Split{.kind = kStereo, .isLast = true};
    case 1:
        return audio.GetProperty("layout") == "stereo" ? PairSplit(audioCount) : Split{};
    case 2:
        return {.kind = kStereo};
    case 6:
        return {.kind = kSurround51};
    default:
        return {.kind = kAdaptive, .channels = channels};
    }
}

// Makes the streams of the audio of one file. The Media of the video, where there is one, carries
// the first stream, and its codec decides the split.
class AudioBuilder {
public:
    AudioBuilder(const ImportState& state, FileElement file, const SourceFields& range,
                 MediaSources& sources)
        : state_(state), file_(file), range_(range), sources_(sources),
          media_(file.GetChild("media")), videoMedia_(sources.VideoMedia()),
          isDiscrete_(file.IsRed() || HasFlag(media_, "hasDiscreteStreams")),
          hasPairs_(HasFlag(media_, "hasStereoPairs"))
    {
        range_.type = MediaType::Audio;
        range_.rate = SampleTicksOfAudio(media_.GetChild("audio"));
    }

    void Build()
    {
        if (range_.rate == 0)
            return;
        for ([[maybe_unused]] const ConstHandle& audio : media_.GetChildren("audio"))
            ++audioCount_;
        for (const ConstHandle& audio : media_.GetChildren("audio"))
            if (!AddAudio(audio))
                return;
    }

private:
    bool IsCodec(std::string_view name) const
    {
        return sources_.codec.find(name) != std::string_view::npos;
    }

    // False when no further `audio` element is to be taken.
    bool AddAudio(ConstHandle audio)
    {
        const int channels = ChannelsOfAudio(audio);
        if (IsCodec("DNxHD") || IsCodec("XDCAM")) {
            AddSharedStream(state_.options.sn2vlMode ? 1 : channels);
            return false;
        }
        const Split split = SplitOf(audio, channels);
        for (int i = 0; i < split.streams; ++i)
            AddStream(split);
        return !split.isLast;
    }

    Split SplitOf(ConstHandle audio, int channels) const
    {
        if (state_.options.sn2vlMode)
            return HandOffSplit(channels);
        if (IsCodec("RED"))
            return {.streams = channels};
        return hasPairs_ ? PairSplit(audioCount_) : OrdinarySplit(audio, channels, audioCount_);
    }

    ObjectHandle MediaForStream(int kind)
    {
        if (!isDiscrete_ && streamCount_ == 0 && videoMedia_)
            return videoMedia_;
        if (kind == kMono || kind == kStereo)
            return MakeMediaOfFile(state_, file_);
        if (!sharedMedia_)
            sharedMedia_ = MakeMediaOfFile(state_, file_);
        return sharedMedia_;
    }

    void AddStream(const Split& split)
    {
        const ObjectHandle media = MediaForStream(split.kind);
        media.AddProperty("StreamNumber",
                          IntToString(isDiscrete_ ? streamCount_ + 1 : streamCount_));
        ++streamCount_;
        AddSource(media, split.kind, split.channels);
    }

    // The files of these cameras hold all channels beside the video.
    void AddSharedStream(int channels)
    {
        videoMedia_.AddPropertyShared("StreamNumber", "0");
        AddSource(videoMedia_, kMono, channels);
        sources_.sharedChannels = channels;
    }

    void AddSource(ObjectHandle media, int kind, int channels)
    {
        media.AddChild("AudioStream", MakeAudioStream(state_.document, range_.rate, range_.duration,
                                                      kind, channels));
        sources_.audio.push_back(MakeMediaSource(state_.document, media, range_));
    }

    const ImportState& state_;
    FileElement file_;
    SourceFields range_;
    MediaSources& sources_;
    ConstHandle media_;        // of the document
    ObjectHandle videoMedia_;  // of the project, as the next
    ObjectHandle sharedMedia_; // for streams of kinds that don't get one each
    bool isDiscrete_ = false;  // streams are numbered from 1, the video being number 0
    bool hasPairs_ = false;
    int audioCount_ = 0;
    int streamCount_ = 0;
};

// ---- Video and audio

// Ticks a frame: of the element, else of the first file of its media, else of the file itself. To
// the letter the first `rate` counts even if it states none. In open interchange a file that states
// its rate has it, whatever the elements count in that show it.
Ticks FrameTicksOf(const ImportState& state, const FileUse& use)
{
    const bool isOpen = state.options.settings.openInterchange;
    const ConstHandle own = use.file;
    const ConstHandle first = FirstFileOf(state.files, use.element);
    for (const ConstHandle& node : {isOpen ? own : ConstHandle(), use.element, first, own}) {
        const ConstHandle rate = node.GetChild("rate");
        if (const Ticks ticks = TicksOfRate(rate); ticks != 0 || (rate && !isOpen))
            return ticks;
    }
    return 0;
}

// The same of video that is generated. To the letter it has the rate of what shows it.
Ticks GeneratedTicksOf(const ImportState& state, const FileUse& use)
{
    const Ticks ticks = state.options.settings.openInterchange
                            ? FrameTicksOf(state, use)
                            : TicksOfRate(use.element.GetChild("rate"));
    return ticks != 0 ? ticks : kNtscFrameTicks;
}

// The length of the file, else of the element, in its own frames in open interchange.
Ticks DurationOf(const ImportState& state, const FileUse& use, Ticks frameTicks)
{
    const bool isOfFile = HasValue(use.file, "duration");
    const ConstHandle own = use.file;
    const Frames frames = Int64Property(isOfFile ? own : use.element, "duration");
    Ticks unit = frameTicks;
    if (const Ticks counted = TicksOfRate(use.element.GetChild("rate"));
        !isOfFile && counted > 0 && state.options.settings.openInterchange)
        unit = counted;
    return MultiplyTicks(std::max<Frames>(frames, 0), unit);
}

// Duration and boundaries that video and audio of the file have in common.
SourceFields RangeOf(const ImportState& state, const FileUse& use, Ticks frameTicks)
{
    SourceFields range;
    range.duration = DurationOf(state, use, frameTicks);
    const SubclipRange part = ReadSubclipInfo(state.files, use.element);
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
             .fieldType = FieldTypeOfDominance(characteristics.GetProperty("fielddominance")),
             .isStill = IsTrue(video, "stillframe") || IsTrue(use.element, "stillframe")}));
    sources.video.push_back(MakeMediaSource(state.document, media, range));
    sources.codec = characteristics.GetProperty("VelaCodec");
}

} // namespace

MediaSources MakeFileSources(const ImportState& state, const FileUse& use)
{
    const FrameFormat frame = FrameOfFile(use.element, use.file, use.characteristics);
    if (use.file.IsBarsAndTone() || use.file.IsGraphic())
        return MakeSyntheticSources(
            state.document, use.file.IsGraphic() ? MediaKind::Graphic : MediaKind::BarsAndTone,
            GeneratedTicksOf(state, use), frame);

    const Ticks frameTicks = FrameTicksOf(state, use);
    MediaSources sources;
    const ConstHandle media = use.file.GetChild("media");
    if (frameTicks == 0 || !media)
        return sources;
    SourceFields range = RangeOf(state, use, frameTicks);
    range.rate = frameTicks;
    if (media.HasChild("video"))
        AddVideoStream(state, use, frame, range, sources);
    if (media.HasChild("audio"))
        AudioBuilder(state, use.file, range, sources).Build();
    return sources;
}

} // namespace XPJ

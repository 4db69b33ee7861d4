#include "import/audio_streams.h"

#include "core/numbers.h"
#include "xmeml/files.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

// More channels than any medium has; damaged documents may state millions.
constexpr int kMaxChannels = 128;

constexpr int kDefaultSampleRate = 48000;

int LimitedChannels(std::int64_t count)
{
    return static_cast<int>(std::clamp<std::int64_t>(count, 0, kMaxChannels));
}

// "stereo", "A1", "6 channels"
int DescribedChannels(std::string_view description)
{
    if (description == "mono" || description == "A1" || description == "A2")
        return 1;
    if (description == "stereo" || description == "A1+A2")
        return 2;
    return LimitedChannels(ParseInt64(description));
}

std::optional<int> StatedChannels(ObjectHandle audio)
{
    for (const Name key : {Name("channelcount"), Name("trackcount")})
        if (HasValue(audio, key))
            return LimitedChannels(Int64Property(audio, key));
    return std::nullopt;
}

// 0 for an empty element, which stands for plain stereo.
int ChannelsOf(ObjectHandle audio)
{
    if (const auto stated = StatedChannels(audio))
        return *stated;
    if (HasValue(audio, "channeldescription"))
        return DescribedChannels(audio.GetProperty("channeldescription"));
    return audio.HasChildren() ? 1 : 0;
}

AudioKind KindOfAudio(ObjectHandle audio)
{
    const std::optional<int> count = StatedChannels(audio);
    if (!count)
        return audio.HasChildren() ? AudioKind{kUnknownChannels, 0} : AudioKind{kStereo, 2};
    switch (*count) {
    case 0:
        return {kUnknownChannels, 0};
    case 1:
        return {audio.GetProperty("layout") == "stereo" ? kStereoPair : kMono, 1};
    case 2:
        return {kStereo, 2};
    case 6:
        return {kSurround51, 6};
    default:
        return {kAdaptive, *count};
    }
}

AudioKind KindOfMedia(ObjectHandle media)
{
    AudioKind first;
    for (const ObjectHandle& audio : media.GetChildren("audio")) {
        first = KindOfAudio(audio);
        if (first.kind != kUnknownChannels)
            break;
    }
    if (HasFlag(media, "hasDiscreteStreams"))
        return {kMono, first.channels};
    if (HasFlag(media, "hasStereoPairs"))
        return {kStereoPair, first.channels};
    if (first.kind == kUnknownChannels && media.HasChild("audio"))
        return {kMono, first.channels};
    return first;
}

// Ticks a sample, 0 where the file states a useless rate.
Ticks SampleTicksOf(ObjectHandle audio)
{
    std::int64_t rate = kDefaultSampleRate;
    const ObjectHandle characteristics = audio.GetChild("samplecharacteristics");
    if (HasValue(characteristics, "samplerate"))
        rate = Int64Property(characteristics, "samplerate");
    else if (HasValue(audio.GetChild("rate"), "timebase"))
        rate = Int64Property(audio.GetChild("rate"), "timebase");
    return rate > 0 ? DivTicksOr0(kTicksPerSecond, rate) : 0;
}

// How one `audio` element is split.
struct Split {
    int kind = kMono;
    int streams = 1;
    int channels = 1;    // of each stream, where the kind leaves it open
    bool isLast = false; // later `audio` elements are left out
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

Split OrdinarySplit(ObjectHandle audio, int channels, int audioCount)
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

class AudioBuilder {
public:
    AudioBuilder(const ImportState& state, ObjectHandle file, const StreamRange& range,
                 FileSources& sources)
        : state_(state), file_(file), range_(range), sources_(sources),
          media_(file.GetChild("media")), videoMedia_(sources.VideoMedia())
    {
        if (!sources.video.empty())
            codec_ = sources.video.front().GetProperty("VelaCodec");
        isDiscrete_ = IsRedFile(file) || HasFlag(media_, "hasDiscreteStreams");
        hasPairs_ = HasFlag(media_, "hasStereoPairs");
    }

    void Build()
    {
        sampleTicks_ = SampleTicksOf(media_.GetChild("audio"));
        if (sampleTicks_ == 0)
            return;
        for ([[maybe_unused]] const ObjectHandle& audio : media_.GetChildren("audio"))
            ++audioCount_;
        for (const ObjectHandle& audio : media_.GetChildren("audio"))
            if (!AddAudio(audio))
                return;
    }

private:
    bool HasMark(std::string_view mark) const { return codec_.find(mark) != codec_.npos; }

    // False when no further `audio` element is to be taken.
    bool AddAudio(ObjectHandle audio)
    {
        const int channels = ChannelsOf(audio);
        if (HasMark("DNxHD") || HasMark("XDCAM")) {
            AddSharedStream(state_.sn2vlMode ? 1 : channels);
            return false;
        }
        const Split split = SplitOf(audio, channels);
        for (int i = 0; i < split.streams; ++i)
            AddStream(split);
        return !split.isLast;
    }

    Split SplitOf(ObjectHandle audio, int channels) const
    {
        if (state_.sn2vlMode)
            return HandOffSplit(channels);
        if (HasMark("RED"))
            return {.streams = channels};
        return hasPairs_ ? PairSplit(audioCount_) : OrdinarySplit(audio, channels, audioCount_);
    }

    ObjectHandle MediaForStream(int kind)
    {
        if (!isDiscrete_ && streamCount_ == 0 && videoMedia_)
            return videoMedia_;
        if (kind == kMono || kind == kStereo)
            return MakeMedia(state_, file_);
        if (!sharedMedia_)
            sharedMedia_ = MakeMedia(state_, file_);
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

    // These cameras' files hold all channels beside the picture.
    void AddSharedStream(int channels)
    {
        videoMedia_.AddProperty("StreamNumber", "0");
        AddSource(videoMedia_, kMono, channels)
            .SetProperty("fcpaudiochannelcount", IntToString(channels));
    }

    ObjectHandle AddSource(ObjectHandle media, int kind, int channels)
    {
        media.AddChild("AudioStream", MakeAudioStream(state_.document, sampleTicks_,
                                                      range_.duration, kind, channels));
        const ObjectHandle source =
            MakeMediaSource(state_.document, MediaType::Audio, media, sampleTicks_, range_.duration,
                            range_.boundaries);
        sources_.audio.push_back(source);
        return source;
    }

    const ImportState& state_;
    ObjectHandle file_;
    const StreamRange& range_;
    FileSources& sources_;
    ObjectHandle media_;       // of the document
    ObjectHandle videoMedia_;  // of the project, as the next
    ObjectHandle sharedMedia_; // for streams of kinds that don't get one each
    std::string_view codec_;
    bool isDiscrete_ = false; // streams are numbered from 1, the picture being number 0
    bool hasPairs_ = false;
    Ticks sampleTicks_ = 0;
    int audioCount_ = 0;
    int streamCount_ = 0;
};

} // namespace

AudioKind AudioKindOfFile(ObjectHandle file)
{
    if (IsBarsAndTone(file))
        return {kStereo, 2};
    AudioKind kind;
    for (const ObjectHandle& media : file.GetChildren("media")) {
        kind = KindOfMedia(media);
        if (kind.kind != kUnknownChannels)
            break;
    }
    if (IsRedFile(file))
        kind.kind = kMono;
    return kind;
}

void AddAudioStreams(const ImportState& state, ObjectHandle file, const StreamRange& range,
                     FileSources& sources)
{
    AudioBuilder(state, file, range, sources).Build();
}

} // namespace XPJ

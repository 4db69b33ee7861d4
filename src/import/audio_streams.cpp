#include "import/audio_streams.h"

#include "core/numbers.h"
#include "import/media.h"
#include "xmeml/file_audio.h"
#include "xmeml/flags.h"

namespace XPJ {

namespace {

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

} // namespace

void AddAudioStreams(const ImportState& state, FileElement file, const SourceFields& range,
                     MediaSources& sources)
{
    AudioBuilder(state, file, range, sources).Build();
}

} // namespace XPJ

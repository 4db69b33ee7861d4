#include "xmeml/file_audio.h"

#include "core/numbers.h"
#include "xmeml/flags.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

// More channels than any media has; damaged documents may state millions.
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

std::optional<int> StatedChannels(ConstHandle audio)
{
    for (const Name key : {Name("channelcount"), Name("trackcount")})
        if (HasValue(audio, key))
            return LimitedChannels(Int64Property(audio, key));
    return std::nullopt;
}

AudioKind KindOfAudio(ConstHandle audio)
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

AudioKind KindOfMedia(ConstHandle media)
{
    AudioKind first;
    for (const ConstHandle& audio : media.GetChildren("audio")) {
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

} // namespace

AudioKind AudioKindOfFile(FileElement file)
{
    if (file.IsBarsAndTone())
        return {kStereo, 2};
    AudioKind kind;
    for (const ConstHandle& media : file.GetChildren("media")) {
        kind = KindOfMedia(media);
        if (kind.kind != kUnknownChannels)
            break;
    }
    if (file.IsRed())
        kind.kind = kMono;
    return kind;
}

int ChannelsOfAudio(ConstHandle audio)
{
    if (const auto stated = StatedChannels(audio))
        return *stated;
    if (HasValue(audio, "channeldescription"))
        return DescribedChannels(audio.GetProperty("channeldescription"));
    return audio.HasChildren() ? 1 : 0;
}

Ticks SampleTicksOfAudio(ConstHandle audio)
{
    std::int64_t rate = kDefaultSampleRate;
    const ConstHandle characteristics = audio.GetChild("samplecharacteristics");
    if (HasValue(characteristics, "samplerate"))
        rate = Int64Property(characteristics, "samplerate");
    else if (HasValue(audio.GetChild("rate"), "timebase"))
        rate = Int64Property(audio.GetChild("rate"), "timebase");
    return rate > 0 ? DivTicksOr0(kTicksPerSecond, rate) : 0;
}

} // namespace XPJ

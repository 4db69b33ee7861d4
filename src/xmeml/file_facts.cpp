#include "xmeml/file_facts.h"

#include "xmeml/file_audio.h"
#include "xmeml/rates.h"

#include <algorithm>

namespace XPJ {

namespace {

// More than any media has; damaged documents may state any number of `audio` elements.
constexpr int kMaxChannels = 1024;

// A start of its own rate, else in the frames of the file.
std::optional<Ticks> StartOf(ConstHandle timecode, Ticks frameTicks)
{
    if (!HasValue(timecode, "frame"))
        return std::nullopt;
    const Ticks own = TicksOfRate(timecode.GetChild("rate"));
    return MultiplyTicks(Int64Property(timecode, "frame"), own > 0 ? own : frameTicks);
}

} // namespace

MediaFacts FactsOfFile(FileElement file)
{
    const ConstHandle media = file.GetChild("media");
    const ConstHandle video = file.VideoCharacteristics();
    const Ticks rate = TicksOfRate(file.GetChild("rate"));
    MediaFacts facts{.width = IntProperty(video, "width"), .height = IntProperty(video, "height")};
    // A file of audio alone counts in any frames.
    if (media.HasChild("video"))
        facts.frameTicks = rate;
    // A still has the length that it is shown for.
    if (!HasValue(media.GetChild("video"), "stillframe"))
        facts.length = std::max<Ticks>(MultiplyTicks(Int64Property(file, "duration"), rate), 0);
    facts.start = StartOf(file.GetChild("timecode"), rate);
    for (const ConstHandle& audio : media.GetChildren("audio")) {
        if (facts.sampleRate == 0)
            facts.sampleRate = IntProperty(audio.GetChild("samplecharacteristics"), "samplerate");
        facts.channels = std::min(facts.channels + ChannelsOfAudio(audio), kMaxChannels);
    }
    return facts;
}

} // namespace XPJ

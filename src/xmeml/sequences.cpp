#include "xmeml/sequences.h"

#include "core/frame_rate.h"

#include <algorithm>
#include <limits>

namespace XPJ {

ConstHandle CharacteristicsOf(ConstHandle sequence)
{
    return FindPath(sequence, {"media", "video", "format", "samplecharacteristics"});
}

bool IsStillSequence(ConstHandle sequence)
{
    return HasValue(FindPath(sequence, {"media", "video", "track", "clipitem"}),
                    "stillframeoffset");
}

bool IsExploded(ConstHandle sequence)
{
    return IsTrue(sequence, "explodedTracks");
}

int OutputChannelsOf(ConstHandle sequence)
{
    const ConstHandle audio = FindPath(sequence, {"media", "audio"});
    if (HasValue(audio, "numOutputChannels"))
        return IntProperty(audio, "numOutputChannels");
    std::int64_t sum = 0;
    for (const ConstHandle& group : audio.GetChild("outputs").GetChildren("group"))
        sum += IntProperty(group, "numchannels");
    return static_cast<int>(std::clamp<std::int64_t>(sum, 0, std::numeric_limits<int>::max()));
}

SequenceTimecode TimecodeOfSequence(ConstHandle sequence, const SequenceRates& rates)
{
    const ConstHandle timecode = sequence.GetChild("timecode");
    const FrameRate rate = RateOfFrame(rates.video);
    const bool canDrop = rate.ntsc && (rate.timebase == 30 || rate.timebase == 60);
    return {.name = sequence.GetProperty("name"),
            .node = sequence.UniqueId(),
            .edges = rates.edges,
            .frames = rates.video,
            .first = Int64Property(timecode, "frame"),
            .base = rate.timebase,
            .drop = canDrop && !IsNonDrop(timecode)};
}

std::string SequenceTimecode::TextOf(Frames edge) const
{
    return FormatTimecode(AddTicks(FrameOf(edge), first), base, drop);
}

Frames SequenceTimecode::FrameOf(Frames edge) const
{
    return MultiplyTicks(edge, edges) / frames;
}

} // namespace XPJ

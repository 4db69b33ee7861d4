#include "xmeml/rates.h"

#include "core/frame_rate.h"
#include "core/text.h"

#include <algorithm>

namespace XPJ {

namespace {

// `frames` of one length as frames of another one, to the nearest.
Frames Convert(Frames frames, Ticks from, Ticks to)
{
    if (from == to || to <= 0)
        return frames;
    const Ticks ticks = MultiplyTicks(frames, from);
    const Frames whole = ticks / to;
    const Ticks rest = ticks % to;
    if (rest >= to - rest)
        return whole + 1;
    return -rest >= to + rest ? whole - 1 : whole;
}

} // namespace

Ticks TicksOfRate(ConstHandle rate)
{
    Ticks ticks = 0;
    FrameTicks(Int64Property(rate, "timebase"), IsTrue(rate, "ntsc"), &ticks);
    return std::max<Ticks>(ticks, 0);
}

bool IsNonDrop(ConstHandle timecode)
{
    return EqualsIgnoreCase(timecode.GetProperty("displayformat"), "NDF");
}

Frames ItemRates::ToSequence(Frames itemFrames) const
{
    return Convert(itemFrames, item, sequence);
}

Frames ItemRates::ToItem(Frames sequenceFrames) const
{
    return Convert(sequenceFrames, sequence, item);
}

ItemRates RatesOfItem(ConstHandle item, Ticks sequenceTicks)
{
    const Ticks own = TicksOfRate(item.GetChild("rate"));
    return {.sequence = sequenceTicks, .item = own > 0 ? own : sequenceTicks};
}

SequenceRates RatesOfSequence(ConstHandle sequence, bool isHandoff)
{
    SequenceRates rates;
    if (const Ticks stated = TicksOfRate(sequence.GetChild("rate")); stated > 0)
        rates.video = stated;
    rates.edges = rates.video;
    const ConstHandle audio =
        FindPath(sequence, {"media", "audio", "format", "samplecharacteristics"});
    if (const std::int64_t samples = Int64Property(audio, "samplerate"); samples > 0)
        rates.audio = std::max<Ticks>(kTicksPerSecond / samples, 1);
    if (isHandoff && rates.video == 1) {
        const Ticks shown = TicksOfRate(FindPath(sequence, {"timecode", "rate"}));
        rates.video = shown < 2 ? kNtscFrameTicks : shown;
    }
    return rates;
}

SequenceRates RatesOfMulticlip(ConstHandle multiclip)
{
    Ticks video = 0;
    Ticks audio = 0;
    const auto take = [&](ConstHandle rate, ConstHandle characteristics) {
        if (video == 0)
            video = TicksOfRate(rate);
        if (const std::int64_t samples = Int64Property(characteristics, "samplerate");
            audio == 0 && samples > 0)
            audio = kTicksPerSecond / samples;
    };
    const ConstHandle own = multiclip.GetChild("samplecharacteristics");
    take(own.GetChild("rate"), own);
    for (const ConstHandle& angle : multiclip.GetChildren("angle")) {
        if (video != 0 && audio != 0)
            break;
        const ConstHandle clip = angle.GetChild("clip");
        take(clip.GetChild("rate"), FindPath(clip, {"media", "audio", "samplecharacteristics"}));
    }
    SequenceRates rates;
    rates.video = video > 0 ? video : rates.video;
    rates.audio = audio > 0 ? audio : rates.audio;
    return rates;
}

} // namespace XPJ

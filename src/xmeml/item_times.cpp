#include "xmeml/item_times.h"

#include "xmeml/formats.h"

#include <algorithm>
#include <limits>

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

Ticks RoundUp(Ticks ticks, Ticks unit)
{
    const Ticks rest = ticks % unit;
    if (rest == 0)
        return ticks;
    return rest > 0 ? AddTicks(ticks, unit - rest) : ticks - rest;
}

// A time that is not stated follows from the three others.
void FillIn(ItemTimes& t, const ItemRates& rates)
{
    const auto isKnown = [](Frames time) { return time != kNotStated; };
    const auto itemLength = [&] { return rates.ToSequence(Minus(t.out, t.in)); };
    const auto placeLength = [&] { return rates.ToItem(Minus(t.end, t.start)); };

    if (!isKnown(t.end)) {
        if (isKnown(t.start) && isKnown(t.in) && isKnown(t.out))
            t.end = AddTicks(itemLength(), t.start);
        return;
    }
    if (isKnown(t.start) && !isKnown(t.in) && isKnown(t.out))
        t.in = Minus(t.out, placeLength());
    if (isKnown(t.start) && isKnown(t.in) && !isKnown(t.out))
        t.out = AddTicks(t.in, placeLength());
    if (!isKnown(t.start) && isKnown(t.in) && isKnown(t.out))
        t.start = Minus(t.end, itemLength());
}

} // namespace

Frames Minus(Frames a, Frames b) noexcept
{
    constexpr Frames kLowest = std::numeric_limits<Frames>::min();
    return AddTicks(a, b == kLowest ? std::numeric_limits<Frames>::max() : -b);
}

Frames ItemRates::ToSequence(Frames itemFrames) const
{
    return Convert(itemFrames, item, sequence);
}

Frames ItemRates::ToItem(Frames sequenceFrames) const
{
    return Convert(sequenceFrames, sequence, item);
}

ItemRates RatesOfItem(ObjectHandle item, Ticks sequenceTicks)
{
    const Ticks own = TicksOfRate(item.GetChild("rate"));
    return {.sequence = sequenceTicks, .item = own > 0 ? own : sequenceTicks};
}

ItemTimes TimesOfClip(ObjectHandle item, const ItemRates& rates)
{
    ItemTimes times{Int64Property(item, "start"), Int64Property(item, "end"),
                    Int64Property(item, "in"), Int64Property(item, "out")};
    if (times.in == 0 && times.out == 0)
        times.out = kNotStated;
    FillIn(times, rates);
    if (const Frames duration = Int64Property(item, "duration"); duration > 0) {
        if (times.end == 0)
            times.end = rates.ToSequence(duration);
        if (times.out == 0)
            times.out = duration;
    }
    return times;
}

// A generator's `duration` is all that it could give, often minutes; the cut is what is stated as
// edges.
ItemTimes TimesOfGenerator(ObjectHandle item, const ItemRates& rates, Frames fileFrames)
{
    const Frames start = Int64Property(item, "start");
    const Frames end = Int64Property(item, "end");
    const Frames in = HasValue(item, "in") ? Int64Property(item, "in") : 0;
    const bool hasEdges = start != kNotStated && end != kNotStated;
    Frames length = 0; // in frames of the sequence
    for (const Frames limit : {rates.ToSequence(Int64Property(item, "duration")),
                               rates.ToSequence(fileFrames), hasEdges ? Minus(end, start) : 0})
        if (limit > 0)
            length = length > 0 ? std::min(length, limit) : limit;

    ItemTimes times{.start = start, .in = std::max<Frames>(in, 0)};
    times.end = start == kNotStated ? kNotStated : AddTicks(start, length);
    times.out = AddTicks(times.in, rates.ToItem(length));
    return times;
}

Ticks ScaledTicks(Frames frames, Ticks frameTicks, double speed)
{
    if (frameTicks == 0)
        return frames;
    if (speed == 1.0)
        return MultiplyTicks(frames, frameTicks);
    return RoundUp(ToTicks(static_cast<double>(frames) * static_cast<double>(frameTicks) * speed),
                   frameTicks);
}

} // namespace XPJ

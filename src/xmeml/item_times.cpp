#include "xmeml/item_times.h"

#include "core/numbers.h"

#include <algorithm>

namespace XPJ {

namespace {

StatedTime ReadTime(ConstHandle element, Name key)
{
    const std::string_view text = element.GetProperty(key);
    return {ParseInt64(text), !text.empty()};
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
    const auto sourceLength = [&] { return rates.ToSequence(SubtractTicks(t.out, t.in)); };
    const auto cutLength = [&] { return rates.ToItem(SubtractTicks(t.end, t.start)); };

    if (!isKnown(t.end)) {
        if (isKnown(t.start) && isKnown(t.in) && isKnown(t.out))
            t.end = AddTicks(sourceLength(), t.start);
        return;
    }
    if (isKnown(t.start) && !isKnown(t.in) && isKnown(t.out))
        t.in = SubtractTicks(t.out, cutLength());
    if (isKnown(t.start) && isKnown(t.in) && !isKnown(t.out))
        t.out = AddTicks(t.in, cutLength());
    if (!isKnown(t.start) && isKnown(t.in) && isKnown(t.out))
        t.start = SubtractTicks(t.end, sourceLength());
}

} // namespace

StatedTimes ReadStatedTimes(ConstHandle element)
{
    return {.start = ReadTime(element, "start"),
            .end = ReadTime(element, "end"),
            .in = ReadTime(element, "in"),
            .out = ReadTime(element, "out"),
            .exactIn = ReadTime(element, "velaTicksIn"),
            .exactOut = ReadTime(element, "velaTicksOut")};
}

ItemTimes TimesOfClip(const ClipItem& item, const ItemRates& rates)
{
    const StatedTimes& stated = item.times;
    ItemTimes times{stated.start.value, stated.end.value, stated.in.value, stated.out.value};
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
ItemTimes TimesOfGenerator(const ClipItem& item, const ItemRates& rates, Frames fileFrames)
{
    const Frames start = item.times.start.value;
    const Frames end = item.times.end.value;
    const bool hasEdges = start != kNotStated && end != kNotStated;
    Frames length = 0; // in frames of the sequence
    for (const Frames limit :
         {rates.ToSequence(Int64Property(item, "duration")), rates.ToSequence(fileFrames),
          hasEdges ? SubtractTicks(end, start) : 0})
        if (limit > 0)
            length = length > 0 ? std::min(length, limit) : limit;

    ItemTimes times{.start = start, .in = std::max<Frames>(item.times.in.value, 0)};
    times.end = start == kNotStated ? kNotStated : AddTicks(start, length);
    times.out = AddTicks(times.in, rates.ToItem(length));
    return times;
}

Ticks ScaledTicks(Frames frames, Ticks frameTicks, double speed)
{
    const Ticks ticks = UnroundedTicks(frames, frameTicks, speed);
    return frameTicks == 0 || speed == 1.0 ? ticks : RoundUp(ticks, frameTicks);
}

Ticks UnroundedTicks(Frames frames, Ticks frameTicks, double speed)
{
    if (frameTicks == 0)
        return frames;
    if (speed == 1.0)
        return MultiplyTicks(frames, frameTicks);
    return ToTicks(static_cast<double>(frames) * static_cast<double>(frameTicks) * speed);
}

} // namespace XPJ

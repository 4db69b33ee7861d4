// Frame lengths as elements state them: a `rate` of their own, else that of what they belong to.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

#include <cstdint>

namespace XPJ {

using Frames = std::int64_t;

// The value of a time that is not stated.
constexpr Frames kNotStated = -1;

// Frame length of a `rate` element in ticks; 0 without a timebase above 0.
Ticks TicksOfRate(ConstHandle rate);

// True when a `timecode` is to be shown without dropped numbers.
bool IsNonDrop(ConstHandle timecode);

// Ticks a frame of a sequence and of one of its items.
struct ItemRates {
    Ticks sequence = kNtscFrameTicks;
    Ticks item = kNtscFrameTicks;

    // A length in the other's frames, to the nearest one.
    Frames ToSequence(Frames itemFrames) const;
    Frames ToItem(Frames sequenceFrames) const;
};

// An item without a rate counts in the sequence's.
ItemRates RatesOfItem(ConstHandle item, Ticks sequenceTicks);

struct SequenceRates {
    Ticks video = kNtscFrameTicks; // a frame
    Ticks audio = kSampleTicks48k; // a sample
    Ticks edges = kNtscFrameTicks; // unit of item edges: a frame, in an audio hand-off a tick
};
SequenceRates RatesOfSequence(ConstHandle sequence, bool isHandoff);

// A multiclip without `samplecharacteristics` of its own has the rates of its angles.
SequenceRates RatesOfMulticlip(ConstHandle multiclip);

} // namespace XPJ

// The four times of a track item, and frames as ticks.
//
// `start` and `end` place an item in the sequence and count in the sequence's frames; `in` and
// `out` choose a part of its source and count in frames of the item's own rate. -1 means that a
// time is not stated: beside a transition, or because it follows from the other three.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

#include <cstdint>

namespace XPJ {

using Frames = std::int64_t;

constexpr Frames kNotStated = -1;

// Difference, clamped to the range.
Frames Minus(Frames a, Frames b) noexcept;

// Ticks a frame of a sequence and of one of its items.
struct ItemRates {
    Ticks sequence = kNtscFrameTicks;
    Ticks item = kNtscFrameTicks;

    // A length in the other's frames, to the nearest one.
    Frames ToSequence(Frames itemFrames) const;
    Frames ToItem(Frames sequenceFrames) const;
};

// An item without a rate counts in the sequence's.
ItemRates RatesOfItem(ObjectHandle item, Ticks sequenceTicks);

struct ItemTimes {
    Frames start = 0;
    Frames end = 0;
    Frames in = 0;
    Frames out = 0;
};

// The times of a `clipitem`; what is missing is filled in from the others, as far as they suffice.
ItemTimes TimesOfClip(ObjectHandle item, const ItemRates& rates);

// The times of a `generatoritem`, whose source has no length of its own. `fileFrames` is the length
// of its file, 0 without one.
ItemTimes TimesOfGenerator(ObjectHandle item, const ItemRates& rates, Frames fileFrames);

// A time in the source of a clip that plays at `speed`, up to the next whole frame.
//   ScaledTicks(3, 8475667200, 0.5) == 2 * 8475667200
Ticks ScaledTicks(Frames frames, Ticks frameTicks, double speed);

} // namespace XPJ

// The four times of a track item, and frames as ticks.
//
// `start` and `end` place an item in the sequence and count in the sequence's frames; `in` and
// `out` choose a part of its source and count in frames of the item's own rate. -1 means that a
// time is not stated: beside a transition, or because it follows from the other three.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"
#include "xmeml/rates.h"

#include <cstdint>
#include <string_view>

namespace XPJ {

// A time as an element states it. An absent one counts as 0.
struct StatedTime {
    std::int64_t value = 0;
    bool isPresent = false;

    bool IsStated() const { return isPresent && value != kNotStated; }
    void Set(std::int64_t newValue) { *this = {newValue, true}; }
};

struct StatedTimes {
    StatedTime start;
    StatedTime end;
    StatedTime in;
    StatedTime out;
    // In and out in ticks, which documents of this system state beside the frames.
    StatedTime exactIn;
    StatedTime exactOut;
};
StatedTimes ReadStatedTimes(ConstHandle element);

// A `clipitem` or `generatoritem` with its times, which its track may have completed. A `clip` that
// is used like an item has those that it states itself.
class ClipItem : public ConstHandle {
public:
    ClipItem() = default;
    explicit ClipItem(ConstHandle element) : ConstHandle(element), times(ReadStatedTimes(element))
    {
    }

    StatedTimes times;
    int position = 0; // on its track, from 1; transitions count
};

struct ItemTimes {
    Frames start = 0;
    Frames end = 0;
    Frames in = 0;
    Frames out = 0;
};

// The times of a `clipitem`; what is missing is filled in from the others, as far as they suffice.
ItemTimes TimesOfClip(const ClipItem& item, const ItemRates& rates);

// The times of a `generatoritem`, whose source has no length of its own. `fileFrames` is the length
// of its file, 0 without one.
ItemTimes TimesOfGenerator(const ClipItem& item, const ItemRates& rates, Frames fileFrames);

// A time in the source of a clip that plays at `speed`, up to the next whole frame.
//   ScaledTicks(3, 8475667200, 0.5) == 2 * 8475667200
Ticks ScaledTicks(Frames frames, Ticks frameTicks, double speed);
// The same between two frames.
Ticks UnroundedTicks(Frames frames, Ticks frameTicks, double speed);

} // namespace XPJ

// Project time: one second is 254016000000 ticks, signed 64 bit.
//
// That number is divisible by every frame rate and sample rate in use, so frame lengths are whole:
// 29.97 is 8475667200 ticks, 23.976 is 10594584000, a 48 kHz sample is 5292000.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace XPJ {

using Ticks = std::int64_t;

// A value in a document with which nothing can be made of the document; `what()` is a text for
// people.
class DocumentFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
// "sequence <Cut 1> has a frame length of 0"; `name` as in the tree, with entities.
DocumentFault NoFrameLength(std::string_view kind, std::string_view name);

constexpr Ticks kTicksPerSecond = 254016000000;
constexpr Ticks kNtscFrameTicks = 8475667200; // 30000/1001 frames a second
constexpr Ticks kPalFrameTicks = 10160640000; // 25 frames a second
constexpr Ticks kSampleTicks48k = 5292000;    // one audio sample at 48000 Hz

// "No time" in `StartBoundary`, `EndBoundary` and `FrameHoldStart`: minus 400000 seconds.
constexpr Ticks kNoTime = -101606400000000000;
// The time of a `StartKeyframe`: minus 100 hours.
constexpr Ticks kStartKeyframeTime = -91445760000000000;

// Product clamped to the range of `Ticks`; for products of values that a document states.
Ticks MultiplyTicks(Ticks a, Ticks b) noexcept;
// Sum clamped to the range of `Ticks`.
Ticks AddTicks(Ticks a, Ticks b) noexcept;
// Difference clamped to the range of `Ticks`.
Ticks SubtractTicks(Ticks a, Ticks b) noexcept;

// Quotient truncated towards zero; 0 for a divisor of 0. For the import.
Ticks DivTicksOr0(Ticks value, Ticks divisor) noexcept;
// The same, but throws DocumentFault for a divisor of 0. For the export, which looks at the lengths
// of media and sequences first, so that the fault has a name.
Ticks DivTicks(Ticks value, Ticks divisor);

// Whole frames, to the nearest one; 0 for a frame length of 0.
std::int64_t NearestFrame(Ticks ticks, Ticks frameTicks) noexcept;

// How far a time that is a product with a speed may be from the one that is meant.
constexpr Ticks kSpeedNoise = 2;
// The frame that has begun at such a time.
std::int64_t FrameOfProduct(Ticks ticks, Ticks frameTicks);

// The nearest lower whole number towards zero, clamped; 0 for not-a-number.
Ticks ToTicks(double value) noexcept;

// Decimal text of a tick count, as project documents state it.
std::string TickText(Ticks ticks);

} // namespace XPJ

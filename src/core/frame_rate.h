// Frame rates as documents state them, frame lengths in ticks, timecode text.
#pragma once

#include "core/ticks.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

// Frame length of an `xmeml` rate. Does not throw; false, and *ticks untouched, for timebase 0.
// 64 bits, since audio hand-off documents state a timebase of 254016000000.
//   FrameTicks(30, true, &t)   // t == 8475667200
bool FrameTicks(std::int64_t timebase, bool ntsc, Ticks* ticks) noexcept;

struct FrameRate {
    std::int64_t timebase = 0;
    bool ntsc = false;

    friend bool operator==(const FrameRate&, const FrameRate&) = default;
};

// The rate that a document states for a frame length; DocumentFault for a length of 0.
FrameRate RateOfFrame(Ticks frameTicks);

// How frames are counted: numbers per second, and whether numbers are dropped to keep pace.
struct TimecodeBase {
    std::int64_t base = 30;
    bool drop = false;

    friend bool operator==(const TimecodeBase&, const TimecodeBase&) = default;
};

// Drop frame at 29.97 and 59.94 unless the project's display format is one of the two non-drop
// ones; DocumentFault for a length of 0.
TimecodeBase TimecodeBaseOf(Ticks frameTicks, int displayFormat);

// "hh:mm:ss:ff", with drop frame "hh;mm;ss;ff". Hours do not wrap at 24, a negative count has a
// leading "-". Numbers are dropped at base 30 and 60 only; a base below 1 counts as 1.
//   FormatTimecode(1800, 30, true) == "00;01;00;02"
std::string FormatTimecode(std::int64_t frame, std::int64_t base, bool drop);

// The same of a time of day, which begins anew after 24 hours.
//   ClockTimecode(2160001, 25, false) == "00:00:00:01"
std::string ClockTimecode(std::int64_t frame, std::int64_t base, bool drop);

// The frame of such a text, with any of ":;." between its four numbers and blanks around it;
// nothing for other text, a base below 1 or numbers that no clock shows.
//   ParseTimecode("00:01:00;02", 30, true) == 1800
std::optional<std::int64_t> ParseTimecode(std::string_view text, std::int64_t base, bool drop);

} // namespace XPJ

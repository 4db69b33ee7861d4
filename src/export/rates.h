// Times, rates and timecodes as elements of `xmeml`.
#pragma once

#include "export/export_context.h"

#include <cstdint>
#include <string>

namespace XPJ::RVX {

// A time in ticks, or in frames of `frameTicks`, truncated. DocumentFault for frames of no length.
std::int64_t TimeOf(TimeUnit unit, Ticks ticks, Ticks frameTicks);
std::string TimeText(TimeUnit unit, Ticks ticks, Ticks frameTicks);

// True for frames of which documents have the rate.
bool IsRateExact(Ticks frameTicks);
// Frames a second, for remarks: "12.5"
std::string RateText(Ticks frameTicks);

// A `rate`; one of ticks has the `timebase` alone, with the ticks of a second.
ObjectHandle WriteRate(Document& document, Ticks frameTicks, TimeUnit unit = TimeUnit::Frames);

// A `timecode` that starts at `start`. `displayFormat` is the project's number for a way to count,
// 0 where none is stated.
ObjectHandle WriteTimecode(Document& document, Ticks start, Ticks frameTicks, int displayFormat);

} // namespace XPJ::RVX

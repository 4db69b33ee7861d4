// Times, rates and timecodes as elements of `xmeml`.
#pragma once

#include "export/export_context.h"

#include <string>

namespace XPJ::RVX {

// A time in the form at hand: ticks, or frames of `frameTicks`, truncated. DocumentFault for
// frames of no length.
std::int64_t TimeOf(const ExportContext& context, Ticks ticks, Ticks frameTicks);
std::string TimeText(const ExportContext& context, Ticks ticks, Ticks frameTicks);

// False for a length that no document can mean: 0 or less, or the largest number, which says that
// there is none.
bool IsRate(Ticks frameTicks);

// A `rate`; in tick form `timebase` alone, with the ticks of a second.
ObjectHandle WriteRate(ExportContext& context, Ticks frameTicks, bool tickForm = false);

// A `timecode` that starts at `start`. `displayFormat` is the project's number for a way to count,
// 0 where none is stated.
ObjectHandle WriteTimecode(ExportContext& context, Ticks start, Ticks frameTicks,
                           int displayFormat);

} // namespace XPJ::RVX

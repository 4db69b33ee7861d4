// How a project shows times: codes of `MZ.Sequence.VideoTimeDisplayFormat` and `TimecodeFormat`.
#pragma once

#include "core/ticks.h"

#include <string_view>

namespace XPJ {

// "102" is drop frame timecode at 29.97, also for a rate that has no code.
std::string_view TimeDisplayOf(bool nonDrop, Ticks frameTicks);

} // namespace XPJ

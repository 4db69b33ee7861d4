// Times of headers in ticks.
#pragma once

#include "core/ticks.h"

#include <cstdint>

namespace XPJ {

// `count` units of which there are `unitsPerSecond`; 0 for what is no time.
Ticks TimeOfUnits(double count, double unitsPerSecond);

// The length of a frame; headers may round it: 23.98 frames a second are 24000/1001. 0 for none.
Ticks FrameOfUnits(std::uint64_t units, std::uint64_t unitsPerSecond);

} // namespace XPJ

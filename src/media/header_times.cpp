#include "media/header_times.h"

#include "core/frame_rate.h"

#include <cmath>

namespace XPJ {

Ticks TimeOfUnits(double count, double unitsPerSecond)
{
    const double seconds = count / unitsPerSecond;
    return std::isfinite(seconds) && seconds > 0
               ? ToTicks(std::round(seconds * static_cast<double>(kTicksPerSecond)))
               : 0;
}

Ticks FrameOfUnits(std::uint64_t units, std::uint64_t unitsPerSecond)
{
    // Less than the distance of 23.976 and 24, more than that of 23.976 and 23.98.
    constexpr double kRounding = 1.0 / 4000;
    constexpr double kMaxRate = 1000;
    const double frame = static_cast<double>(units) / static_cast<double>(unitsPerSecond);
    const double rate = std::round(1.0 / frame);
    if (!(rate >= 1.0 && rate <= kMaxRate))
        return 0;
    for (const bool ntsc : {false, true}) {
        Ticks ticks = 0;
        FrameTicks(static_cast<std::int64_t>(rate), ntsc, &ticks);
        const double exact = static_cast<double>(ticks) / static_cast<double>(kTicksPerSecond);
        if (std::abs(exact - frame) < exact * kRounding)
            return ticks;
    }
    return ToTicks(frame * static_cast<double>(kTicksPerSecond));
}

} // namespace XPJ

#include "core/ticks.h"

#include "core/numbers.h"
#include "core/text.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

namespace XPJ {

namespace {

constexpr Ticks kMaxTicks = std::numeric_limits<Ticks>::max();
constexpr Ticks kMinTicks = std::numeric_limits<Ticks>::min();

} // namespace

DocumentFault NoFrameLength(std::string_view kind, std::string_view name)
{
    return DocumentFault(fmt::format("{} <{}> has a frame length of 0", kind, UnescapeXML(name)));
}

Ticks MultiplyTicks(Ticks a, Ticks b) noexcept
{
    Ticks product = 0;
    if (!__builtin_mul_overflow(a, b, &product))
        return product;
    return (a < 0) == (b < 0) ? kMaxTicks : kMinTicks;
}

Ticks AddTicks(Ticks a, Ticks b) noexcept
{
    Ticks sum = 0;
    if (!__builtin_add_overflow(a, b, &sum))
        return sum;
    return a < 0 ? kMinTicks : kMaxTicks;
}

Ticks SubtractTicks(Ticks a, Ticks b) noexcept
{
    constexpr Ticks kLowest = std::numeric_limits<Ticks>::min();
    return AddTicks(a, b == kLowest ? std::numeric_limits<Ticks>::max() : -b);
}

Ticks DivTicksOr0(Ticks value, Ticks divisor) noexcept
{
    if (divisor == 0)
        return 0;
    // The one quotient that 64 bits can't hold.
    if (divisor == -1)
        return value == kMinTicks ? kMaxTicks : -value;
    return value / divisor;
}

Ticks DivTicks(Ticks value, Ticks divisor)
{
    if (divisor == 0)
        throw DocumentFault("a frame length is 0");
    return DivTicksOr0(value, divisor);
}

std::int64_t NearestFrame(Ticks ticks, Ticks frameTicks) noexcept
{
    const Ticks half = frameTicks / 2;
    return DivTicksOr0(ticks < 0 ? SubtractTicks(ticks, half) : AddTicks(ticks, half), frameTicks);
}

std::int64_t FrameOfProduct(Ticks ticks, Ticks frameTicks)
{
    return DivTicks(AddTicks(ticks, kSpeedNoise), frameTicks);
}

Ticks ToTicks(double value) noexcept
{
    if (std::isnan(value))
        return 0;
    // 2^63 is a double, the largest Ticks is not: compare before converting.
    constexpr double kLimit = 9223372036854775808.0;
    if (value >= kLimit)
        return kMaxTicks;
    if (value < -kLimit)
        return kMinTicks;
    return static_cast<Ticks>(value);
}

std::string TickText(Ticks ticks)
{
    return IntToString(ticks);
}

} // namespace XPJ

#include "core/ticks.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace XPJ {
namespace {

constexpr Ticks kMax = std::numeric_limits<Ticks>::max();
constexpr Ticks kMin = std::numeric_limits<Ticks>::min();

TEST(Ticks, FrameLengthsAreWhole)
{
    EXPECT_EQ(kTicksPerSecond * 1001 / 30000, kNtscFrameTicks);
    EXPECT_EQ(kTicksPerSecond % 30000 * 1001 % 30000, 0);
    EXPECT_EQ(kTicksPerSecond / 25, kPalFrameTicks);
    EXPECT_EQ(kTicksPerSecond / 48000, kSampleTicks48k);
}

TEST(Ticks, ArithmeticStopsAtTheRange)
{
    EXPECT_EQ(MultiplyTicks(kMax, 2), kMax);
    EXPECT_EQ(MultiplyTicks(kMax, -2), kMin);
    EXPECT_EQ(MultiplyTicks(kMin, -1), kMax);
    EXPECT_EQ(MultiplyTicks(-3, 4), -12);
    EXPECT_EQ(AddTicks(kMax, 1), kMax);
    EXPECT_EQ(AddTicks(kMin, -1), kMin);
    EXPECT_EQ(AddTicks(kMin, kMax), -1);
}

TEST(Ticks, DivisionByZeroIsZeroOrAnError)
{
    EXPECT_EQ(DivTicksOr0(7, 0), 0);
    EXPECT_EQ(DivTicksOr0(-7, 2), -3);
    EXPECT_EQ(DivTicksOr0(kMin, -1), kMax);
    EXPECT_EQ(DivTicks(7, 2), 3);
    EXPECT_THROW(DivTicks(7, 0), std::runtime_error);
}

TEST(Ticks, DoublesAreClamped)
{
    EXPECT_EQ(ToTicks(-1.9), -1);
    EXPECT_EQ(ToTicks(1e300), kMax);
    EXPECT_EQ(ToTicks(-1e300), kMin);
    EXPECT_EQ(ToTicks(9223372036854775808.0), kMax);
    EXPECT_EQ(ToTicks(std::numeric_limits<double>::quiet_NaN()), 0);
}

} // namespace
} // namespace XPJ

#include "core/numbers.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace XPJ {
namespace {

constexpr std::int64_t kMin64 = std::numeric_limits<std::int64_t>::min();

TEST(Numbers, WholeNumbersOfAnyText)
{
    for (const auto& row : ReadRows("core/whole_numbers.txt", 2))
        EXPECT_EQ(ParseInt64(row[0]), std::stoll(row[1])) << '"' << row[0] << '"';
    EXPECT_EQ(ParseInt("254016000000"), std::numeric_limits<int>::max());
    EXPECT_EQ(ParseInt("-254016000000"), std::numeric_limits<int>::min());
}

TEST(Numbers, RealNumbersOfAnyText)
{
    for (const auto& row : ReadRows("core/real_numbers.txt", 2))
        EXPECT_EQ(ParseDouble(row[0]), std::stod(row[1])) << '"' << row[0] << '"';
    EXPECT_EQ(ParseDouble(std::string(400, '9')), std::numeric_limits<double>::max());
    EXPECT_EQ(ParseDouble("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, TextIsThatOfTheClassicLocale)
{
    EXPECT_EQ(IntToString(kMin64), "-9223372036854775808");
    EXPECT_EQ(UintToString(4287466893u), "4287466893");
    EXPECT_EQ(DoubleToString(1), "1");
    EXPECT_EQ(DoubleToString(0.5), "0.5");
    EXPECT_EQ(DoubleToString(100.0 / 3), "33.3333");
    EXPECT_EQ(DoubleToString(1e6), "1e+06");
}

TEST(Numbers, SixDigitsAreThoseOfPrintf)
{
    for (const double unit : {1e-6, 1e-4, 1e-3, 0.0104, 0.1, 0.37, 1.0, 999.9})
        for (int i = -12'345; i < 12'345; i += 7)
            for (const double value : {i * unit, std::nextafter(i * unit, 1e9)}) {
                std::array<char, 40> expected{};
                std::snprintf(expected.data(), expected.size(), "%g", value);
                ASSERT_EQ(DoubleToString(value), expected.data()) << i << " * " << unit;
            }
}

} // namespace
} // namespace XPJ

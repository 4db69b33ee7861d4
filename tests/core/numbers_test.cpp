#include "core/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace XPJ {
namespace {

constexpr std::int64_t kMax64 = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin64 = std::numeric_limits<std::int64_t>::min();

TEST(Numbers, WholeNumbersOfAnyText)
{
    const struct {
        std::string_view text;
        std::int64_t value;
    } kCases[] = {
        {"", 0},
        {"x", 0},
        {"-", 0},
        {"+", 0},
        {"12", 12},
        {" \t\n-12x", -12},
        {"+7", 7},
        {"+-7", 0},
        {"--7", 0},
        {"3.9", 3},
        {"0x10", 0},
        {"9223372036854775807", kMax64},
        {"9223372036854775808", kMax64},
        {"-99999999999999999999", kMin64},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(ParseInt64(row.text), row.value) << '"' << row.text << '"';
    EXPECT_EQ(ParseInt("254016000000"), std::numeric_limits<int>::max());
    EXPECT_EQ(ParseInt("-254016000000"), std::numeric_limits<int>::min());
}

TEST(Numbers, RealNumbersOfAnyText)
{
    const struct {
        std::string_view text;
        double value;
    } kCases[] = {
        {"", 0},
        {"-", 0},
        {".", 0},
        {"nan", 0},
        {"inf", 0},
        {"-inf", 0},
        {"0x1p3", 0},
        {"1.5", 1.5},
        {"-.5", -.5},
        {" +2.25%", 2.25},
        {"1,5", 1},
        {"1e2x", 100},
        {"1e", 1},
        {"-0", 0},
        {"1e-999", 0},
        {"1e999", std::numeric_limits<double>::max()},
        {"-1e999", -std::numeric_limits<double>::max()},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(ParseDouble(row.text), row.value) << '"' << row.text << '"';
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

} // namespace
} // namespace XPJ

#include "core/frame_rate.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace XPJ {
namespace {

TEST(FrameRate, LengthOfEveryStatedRate)
{
    const struct {
        std::int64_t timebase;
        bool ntsc;
        Ticks ticks;
    } rows[] = {
        {24, true, 10594584000},   {24, false, 10584000000},
        {30, true, 8475667200},    {30, false, 8467200000},
        {48, true, 5297407770},    {48, false, 5292000000},
        {60, true, 4237833600},    {60, false, 4233600000},
        {25, true, 10160640000},   {25, false, 10160640000},
        {23, true, 11044173913},   {254016000000, false, 1},
        {-25, true, -10160640000}, {std::numeric_limits<std::int64_t>::max(), true, 0},
    };
    for (const auto& row : rows) {
        Ticks ticks = -1;
        EXPECT_TRUE(FrameTicks(row.timebase, row.ntsc, &ticks));
        EXPECT_EQ(ticks, row.ticks) << row.timebase << " " << row.ntsc;
    }
    Ticks untouched = 5;
    EXPECT_FALSE(FrameTicks(0, true, &untouched));
    EXPECT_EQ(untouched, 5);
}

TEST(FrameRate, LengthsLeadBackToTheirRate)
{
    for (const FrameRate& rate : {FrameRate{24, true},
                                     {30, true},
                                     {48, true},
                                     {60, true},
                                     {24, false},
                                     {25, false},
                                     {30, false},
                                     {50, false},
                                     {60, false},
                                     {254016000000, false}}) {
        Ticks ticks = 0;
        ASSERT_TRUE(FrameTicks(rate.timebase, rate.ntsc, &ticks));
        EXPECT_EQ(RateOfFrame(ticks), rate) << rate.timebase;
    }
    EXPECT_THROW(RateOfFrame(0), std::runtime_error);
}

TEST(FrameRate, FormOfTheTimecode)
{
    const struct {
        Ticks ticks;
        int displayFormat;
        TimecodeBase form;
    } rows[] = {
        {8475667200, 0, {30, true}},    {8475667200, 102, {30, true}},
        {8475667200, 103, {30, false}}, {4237833600, 106, {60, true}},
        {4237833600, 107, {60, false}}, {10594584000, 110, {24, false}},
        {5297407770, 0, {47, false}},   {10160640000, 0, {25, false}},
        {8467200000, 0, {30, false}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TimecodeBaseOf(row.ticks, row.displayFormat), row.form)
            << row.ticks << " " << row.displayFormat;
}

TEST(FrameRate, TimecodeText)
{
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    const struct {
        std::int64_t frame, base;
        bool drop;
        const char* text;
    } rows[] = {
        {0, 30, true, "00;00;00;00"},
        {1799, 30, true, "00;00;59;29"},
        {1800, 30, true, "00;01;00;02"},
        {3597, 30, true, "00;01;59;29"},
        {3598, 30, true, "00;02;00;02"},
        {17981, 30, true, "00;09;59;29"},
        {17982, 30, true, "00;10;00;00"},
        {107892, 30, true, "01;00;00;00"},
        {3600, 60, true, "00;01;00;04"},
        {35964, 60, true, "00;10;00;00"},
        {1800, 30, false, "00:01:00:00"},
        {90125, 25, false, "01:00:05:00"},
        {1800, 24, true, "00:01:15:00"},
        {-1800, 30, true, "-00;01;00;02"},
        {9000000, 25, false, "100:00:00:00"},
        {61, 0, false, "00:01:01:00"},
        {kMin, 25, false, "-102481911520608:37:12:08"},
        {254016000000, std::numeric_limits<std::int64_t>::max(), false, "00:00:01:00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FormatTimecode(row.frame, row.base, row.drop), row.text)
            << row.frame << " at " << row.base;
}

} // namespace
} // namespace XPJ

#include "core/frame_rate.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace XPJ {
namespace {

TEST(FrameRate, LengthOfEveryStatedRate)
{
    for (const auto& row : ReadRows("core/frame_lengths.txt", 3)) {
        Ticks ticks = -1;
        EXPECT_TRUE(FrameTicks(std::stoll(row[0]), row[1] == "true", &ticks));
        EXPECT_EQ(ticks, std::stoll(row[2])) << row[0] << " " << row[1];
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
    for (const auto& row : ReadRows("core/timecodes.txt", 4))
        EXPECT_EQ(FormatTimecode(std::stoll(row[0]), std::stoll(row[1]), row[2] == "true"), row[3])
            << row[0] << " at " << row[1];
}

TEST(FrameRate, DaysBeginAnewAfterMidnight)
{
    const struct {
        std::int64_t frame;
        std::int64_t base;
        bool drop;
        const char* text;
    } rows[] = {
        {24 * 90000 - 1, 25, false, "23:59:59:24"},
        {24 * 90000, 25, false, "00:00:00:00"},
        {25 * 90000 + 7, 25, false, "01:00:00:07"},
        {24 * 107892, 30, true, "00;00;00;00"}, // 30 numbers a second but for two a minute
        {24 * 107892 - 1, 30, true, "23;59;59;29"},
        {-25, 25, false, "-00:00:01:00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ClockTimecode(row.frame, row.base, row.drop), row.text) << row.frame;
}

} // namespace
} // namespace XPJ

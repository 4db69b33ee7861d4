#include "grading/timecode.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <limits>

namespace XPJ {
namespace {

TEST(TimeCode, RangesAreChecked)
{
    const struct {
        TimeCode timeCode;
        std::string_view errors;
    } kCases[] = {
        {TimeCode(), ""},
        {TimeCode(23, 59, 59, 29, 30), ""},
        {TimeCode(25, 0, 0, 0, 30), "TimeCode's Hour value exceeds 23 (25)\n"},
        {TimeCode(-1, 0, 0, 0, 30), "TimeCode's Hour value exceeds 23 (-1)\n"},
        {TimeCode(0, 60, 0, 0, 30), "TimeCode's Minute value exceeds 59 (60)\n"},
        {TimeCode(0, 0, 99, 0, 30), "TimeCode's Second value exceeds 59 (99)\n"},
        {TimeCode(0, 0, 0, 24, 23.976), "TimeCode's Frame value outside range 0..23 (24)\n"},
        {TimeCode(0, 0, 0, -1, 25), "TimeCode's Frame value outside range 0..24 (-1)\n"},
        {TimeCode(0, 0, 0, 0, -25), "TimeCode's fps value is < 0 - invalid\n"},
        {TimeCode(0, 0, 0, 24, -25), "TimeCode's Frame value outside range 0..0 (24)\n"
                                     "TimeCode's fps value is < 0 - invalid\n"},
        {TimeCode(0, 0, 0, 1, 0), "TimeCode's Frame value outside range 0..0 (1)\n"},
        {TimeCode(0, 0, 0, 0, 25, true), "Drop frame unspecified for FPS values other than 30\n"},
        {TimeCode(0, 1, 0, 0, 59.94, true),
         "Drop frame unspecified for FPS values other than 30\n"},
        {TimeCode(0, 1, 0, 0, 29.97, true),
         "TimeCode's Frame value outside range valid for drop frame TimeCode (0)\n"},
        {TimeCode(0, 59, 0, 1, 30, true),
         "TimeCode's Frame value outside range valid for drop frame TimeCode (1)\n"},
        {TimeCode(0, 1, 0, 2, 29.97, true), ""},
        {TimeCode(0, 1, 1, 0, 29.97, true), ""},
        {TimeCode(0, 20, 0, 0, 29.97, true), ""},
        {TimeCode(0, 1, 0, 0, 29.97), ""},
        {TimeCode(24, 60, 60, 30, 30),
         "TimeCode's Hour value exceeds 23 (24)\nTimeCode's Minute value exceeds 59 (60)\n"
         "TimeCode's Second value exceeds 59 (60)\n"
         "TimeCode's Frame value outside range 0..29 (30)\n"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(row.timeCode.errorText, row.errors) << row.timeCode.LongText();
        EXPECT_EQ(row.timeCode.hasError, !row.errors.empty()) << row.timeCode.LongText();
    }
    EXPECT_EQ(kCases[2].timeCode.hour, 25);
}

TEST(TimeCode, RateMayChange)
{
    TimeCode timeCode(0, 0, 0, 27, 25, true);
    EXPECT_TRUE(timeCode.hasError);
    timeCode.SetFps(29.97);
    EXPECT_EQ(timeCode.errorText, "");
    EXPECT_FALSE(timeCode.hasError);
    EXPECT_EQ(timeCode.intFps, 30);
    timeCode = TimeCode(0, 0, 1, 0, 25);
    timeCode.SetFps(-30);
    EXPECT_EQ(timeCode.errorText, "TimeCode's FPS value is < 0 - invalid\n");
    for (const double fps : {-30.0, 0.0, 0.4, std::numeric_limits<double>::quiet_NaN()}) {
        timeCode.SetFps(fps);
        EXPECT_EQ(timeCode.intFps, 1) << fps;
    }
    timeCode.SetFps(1e300);
    EXPECT_EQ(timeCode.intFps, std::numeric_limits<int>::max());
}

TEST(TimeCode, Frames)
{
    const struct {
        TimeCode timeCode;
        std::int64_t frames;
    } kCases[] = {
        {TimeCode(0, 0, 1, 2, 25), 27},
        {TimeCode(1, 0, 0, 0, 23.976), 86400},
        {TimeCode(0, 0, 1, 0, 30, false, true), -30},
        {TimeCode(0, 0, 59, 29, 29.97, true), 1799},
        {TimeCode(0, 1, 0, 2, 29.97, true), 1800},
        {TimeCode(0, 9, 59, 29, 29.97, true), 17981},
        {TimeCode(0, 10, 0, 0, 29.97, true), 17982},
        {TimeCode(1, 0, 0, 0, 29.97, true), 107892},
        {TimeCode(23, 59, 59, 29, 29.97, true), 2589407},
        {TimeCode(0, 0, 59, 29, 29.97, true, true), -1799},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(row.timeCode.Frames(), row.frames) << row.timeCode.LongText();
        const TimeCode back =
            TimeCode::FromFrames(row.frames, row.timeCode.fps, row.timeCode.dropFrame);
        EXPECT_EQ(back.LongText(), row.timeCode.LongText());
        EXPECT_FALSE(back.hasError) << back.errorText;
    }
    // Every frame of a drop frame day's half hour, over three ten-minute edges.
    for (std::int64_t frames = 0; frames < 54000; ++frames) {
        const TimeCode timeCode = TimeCode::FromFrames(frames, 29.97, true);
        ASSERT_EQ(timeCode.Frames(), frames);
        ASSERT_FALSE(timeCode.hasError) << timeCode.errorText;
    }
}

TEST(TimeCode, FramesBeyondADay)
{
    const TimeCode day = TimeCode::FromFrames(2160000, 25);
    EXPECT_EQ(day.Text(), "24:00:00:00");
    EXPECT_EQ(day.errorText, "TimeCode's Hour value exceeds 23 (24)\n");
    for (const std::int64_t frames :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()})
        for (const bool dropFrame : {false, true})
            for (const double fps : {0.0, 30.0, 1e300})
                TimeCode::FromFrames(frames, fps, dropFrame).Frames();
    const int most = std::numeric_limits<int>::max();
    EXPECT_EQ(TimeCode(most, most, most, most, 1e300).Frames(),
              std::numeric_limits<std::int64_t>::max());
}

TEST(TimeCode, Text)
{
    EXPECT_EQ(TimeCode(1, 2, 3, 4, 30, false, true).Text(), "-01:02:03:04");
    EXPECT_EQ(TimeCode(1, 2, 3, 104, 120).Text(), "01:02:03:104");
    EXPECT_EQ(TimeCode(1, 2, 3, 4, 29.97, true).LongText(), "01:02:03:04 (29.97 fps, DropFrame)");
    EXPECT_EQ(TimeCode(1, 2, 3, 4, 25).LongText(), "01:02:03:04 (25 fps)");
}

TEST(TimeCode, Parsing)
{

    for (const auto& row : ReadRows("grading/timecode_texts.txt", 3)) {
        const TimeCode timeCode = TimeCode::Parse(row[0]);
        EXPECT_EQ(timeCode.LongText(), row[1]) << row[0];
        EXPECT_EQ(timeCode.errorText, row[2]) << row[0];
        EXPECT_EQ(timeCode.hasError, !row[2].empty()) << row[0];
    }
    EXPECT_EQ(TimeCode::Parse("99999999999999999999:0:0:0").hour, std::numeric_limits<int>::max());
}

} // namespace
} // namespace XPJ

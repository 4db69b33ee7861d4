#include "xmeml/item_times.h"

#include "support/xmeml_fixture.h"
#include "xmeml/speed.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

using ItemTimesTest = XmemlTest;

std::string TimesText(const ItemTimes& times)
{
    return std::to_string(times.start) + " " + std::to_string(times.end) + " " +
           std::to_string(times.in) + " " + std::to_string(times.out);
}

struct TimesRow {
    const char* stated; // start end in out duration
    const char* times;  // start end in out
};

std::string Elements(const std::string& values)
{
    static constexpr const char* kTags[] = {"start", "end", "in", "out", "duration"};
    std::string text;
    std::size_t from = 0;
    for (const char* tag : kTags) {
        const std::size_t to = values.find(' ', from);
        const std::string value = values.substr(from, to - from);
        if (value != "x")
            text += std::string("<") + tag + ">" + value + "</" + tag + ">";
        from = to + 1;
    }
    return text;
}

TEST_F(ItemTimesTest, MissingTimesFollowFromTheOthers)
{
    constexpr TimesRow kRows[] = {
        {"10 60 5 55 0", "10 60 5 55"},  {"10 -1 5 55 0", "10 60 5 55"},
        {"10 60 -1 55 0", "10 60 5 55"}, {"10 60 5 -1 0", "10 60 5 55"},
        {"-1 60 5 55 0", "10 60 5 55"},  {"10 -1 0 0 50", "10 -1 0 -1"}, // two are missing
        {"0 0 0 0 50", "0 50 0 50"},     {"0 0 3 0 50", "0 50 3 50"},
        {"x x x x 50", "0 50 0 50"},
    };
    for (const TimesRow& row : kRows) {
        const ObjectHandle sequence =
            ParseSequence("<media><video><track><clipitem>" + Elements(row.stated) +
                          "</clipitem></track></video></media>");
        const ClipItem item(FindPath(sequence, {"media", "video", "track", "clipitem"}));
        EXPECT_EQ(TimesText(TimesOfClip(item, RatesOfItem(item, kPalFrameTicks))), row.times)
            << row.stated;
    }
}

TEST_F(ItemTimesTest, SourceLengthsCountInTheItemsRate)
{
    const ObjectHandle sequence =
        ParseSequence("<media><video><track><clipitem><rate><timebase>50</timebase></rate>"
                      "<start>10</start><end>-1</end><in>20</in><out>120</out>"
                      "</clipitem></track></video></media>");
    const ClipItem item(FindPath(sequence, {"media", "video", "track", "clipitem"}));
    const ItemRates rates = RatesOfItem(item, kPalFrameTicks);
    EXPECT_EQ(TimesText(TimesOfClip(item, rates)), "10 60 20 120");
    EXPECT_EQ(rates.ToItem(7), 14);
    EXPECT_EQ(rates.ToSequence(7), 4);
    EXPECT_EQ(rates.ToSequence(-7), -4);
}

TEST_F(ItemTimesTest, GeneratorsEndAtTheCut)
{
    constexpr TimesRow kRows[] = {
        {"10 60 0 0 3000", "10 60 0 50"}, // the cut is shorter than the generator
        {"10 60 100 150 30", "10 40 100 130"}, {"10 -1 5 0 30", "10 40 5 35"},
        {"-1 60 0 0 30", "-1 -1 0 30"},        {"10 10 0 0 0", "10 10 0 0"},
    };
    for (const TimesRow& row : kRows) {
        const ObjectHandle sequence =
            ParseSequence("<media><video><track><generatoritem>" + Elements(row.stated) +
                          "</generatoritem></track></video></media>");
        const ClipItem item(FindPath(sequence, {"media", "video", "track", "generatoritem"}));
        EXPECT_EQ(TimesText(TimesOfGenerator(item, RatesOfItem(item, kPalFrameTicks), 0)),
                  row.times)
            << row.stated;
    }
}

TEST(ScaledTicks, GoUpToTheNextFrame)
{
    EXPECT_EQ(ScaledTicks(3, kNtscFrameTicks, 0.5), 2 * kNtscFrameTicks);
    EXPECT_EQ(ScaledTicks(-3, kNtscFrameTicks, 0.5), -kNtscFrameTicks);
    EXPECT_EQ(ScaledTicks(4, kNtscFrameTicks, 0.5), 2 * kNtscFrameTicks);
    EXPECT_EQ(ScaledTicks(7, 0, 0.5), 7);
    // A double holds no count of ticks this long.
    EXPECT_EQ(ScaledTicks(9'000'001, 8'475'667'201, 1.0), 9'000'001 * Ticks{8'475'667'201});
    EXPECT_GT(ScaledTicks(INT64_MAX, kNtscFrameTicks, 4.0), 0);
}

TEST_F(ItemTimesTest, SpeedComesFromTheFirstFilterThatIsOn)
{
    const auto filter = [](const std::string& enabled, const std::string& parameters) {
        return "<filter><enabled>" + enabled + "</enabled><effect><effectid>timeremap</effectid>" +
               parameters + "</effect></filter>";
    };
    const auto parameter = [](const std::string& id, const std::string& value) {
        return "<parameter><parameterid>" + id + "</parameterid><value>" + value +
               "</value></parameter>";
    };
    const auto speedOf = [&](const std::string& filters) {
        const ObjectHandle sequence = ParseSequence("<media><video><track><clipitem>" + filters +
                                                    "</clipitem></track></video></media>");
        return SpeedOfItem(FindPath(sequence, {"media", "video", "track", "clipitem"}));
    };
    EXPECT_EQ(speedOf("").speed, 1.0);
    EXPECT_EQ(speedOf(filter("TRUE", parameter("speed", "0"))).speed, 1.0);
    EXPECT_EQ(speedOf(filter("FALSE", parameter("speed", "50")) +
                      filter("TRUE", parameter("speed", "200")))
                  .speed,
              2.0);
    const ItemSpeed backwards =
        speedOf(filter("TRUE", parameter("speed", "-50") + parameter("frameblending", "TRUE")));
    EXPECT_EQ(backwards.speed, 0.5);
    EXPECT_TRUE(backwards.playBackwards);
    EXPECT_TRUE(backwards.frameBlending);
    const std::string graph =
        "<parameter><parameterid>graphdict</parameterid><keyframe><when>100</when><value>25</value>"
        "<speedkfout>TRUE</speedkfout></keyframe></parameter>";
    EXPECT_EQ(speedOf(filter("TRUE", parameter("speed", "80") + graph)).speed, 0.25);
    EXPECT_EQ(
        speedOf(filter("TRUE", parameter("speed", "80") + parameter("reverse", "TRUE") + graph))
            .speed,
        0.8);
}

} // namespace
} // namespace XPJ

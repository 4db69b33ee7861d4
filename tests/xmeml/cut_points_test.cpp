#include "xmeml/cut_points.h"

#include "support/xmeml_fixture.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr Ticks kFrame = kPalFrameTicks;

std::string Item(const std::string& times)
{
    return "<clipitem>" + times + "</clipitem>";
}

class CutPointsTest : public XmemlTest {
protected:
    // A transition from 100 to 120 between two items that omit their edges.
    void
    Complete(const std::string& transition,
             const std::string& before = "<start>40</start><end>-1</end><in>0</in><out>80</out>",
             const std::string& after = "<start>-1</start><end>200</end><in>10</in><out>110</out>",
             bool openInterchange = false)
    {
        const ObjectHandle sequence = ParseSequence(
            "<rate><timebase>25</timebase></rate><media><video><track>" + Item(before) +
            "<transitionitem><start>100</start><end>120</end>" + transition + "</transitionitem>" +
            Item(after) + "</track></video></media>");
        const std::vector<ClipItem> items =
            ItemsOfTrack(FindPath(sequence, {"media", "video", "track"}), {kFrame, openInterchange},
                         MediaType::Video);
        ASSERT_EQ(items.size(), 2U);
        before_ = items[0].times;
        after_ = items[1].times;
    }
    static std::string Times(const StatedTimes& times)
    {
        std::string text;
        for (const StatedTime& time : {times.start, times.end, times.in, times.out})
            text.append(text.empty() ? "" : " ").append(std::to_string(time.value));
        return text;
    }

    StatedTimes before_;
    StatedTimes after_;
};

TEST_F(CutPointsTest, EdgesFollowFromTheCut)
{
    constexpr struct {
        const char* transition;
        const char* before; // start end in out
        const char* after;
    } kRows[] = {
        {"<alignment>center</alignment>", "40 110 0 70", "110 200 20 110"},
        {"", "40 110 0 70", "110 200 20 110"},
        {"<alignment>start</alignment>", "40 100 0 60", "100 200 10 110"},
        {"<alignment>start-black</alignment>", "40 100 0 60", "100 200 10 110"},
        {"<alignment>end</alignment>", "40 120 0 80", "120 200 30 110"},
        {"<alignment>end-black</alignment>", "40 120 0 80", "120 200 30 110"},
        {"<alignment>sideways</alignment>", "40 -1 0 80", "-1 200 10 110"},
        {"<cutPoint>5</cutPoint>", "40 105 0 75", "105 200 15 110"},
        // A cut at an end of the transition is none.
        {"<cutPoint>20</cutPoint><alignment>start</alignment>", "40 100 0 60", "100 200 10 110"},
        {"<cutPoint>0</cutPoint><alignment>end</alignment>", "40 120 0 80", "120 200 30 110"},
        {"<cutPointTicks>50803200000</cutPointTicks>", "40 105 0 75", "105 200 15 110"},
    };
    for (const auto& row : kRows) {
        Complete(row.transition);
        EXPECT_EQ(Times(before_), row.before) << row.transition;
        EXPECT_EQ(Times(after_), row.after) << row.transition;
    }
}

TEST_F(CutPointsTest, StatedEdgesAndUnknownPointsStay)
{
    const std::string stated = "<start>40</start><end>105</end><in>0</in><out>65</out>";
    Complete("<alignment>center</alignment>", stated,
             "<start>-1</start><end>-1</end><in>-1</in><out>110</out>");
    EXPECT_EQ(Times(before_), "40 105 0 65");
    EXPECT_EQ(Times(after_), "110 -1 -1 110"); // the transition counts all the same

    Complete("<alignment>end</alignment>", stated,
             "<start>-1</start><end>-1</end><in>10</in><out>-1</out>");
    EXPECT_EQ(Times(after_), "120 -1 30 -1");
}

TEST_F(CutPointsTest, ExactPointsMoveWithTheEdges)
{
    const std::string exact =
        "<velaTicksIn>1000</velaTicksIn><velaTicksOut>900000000000</velaTicksOut>"
        "<in>0</in><out>80</out>";
    Complete("<cutPointTicks>50803200007</cutPointTicks>", "<start>40</start><end>-1</end>" + exact,
             "<start>-1</start><end>200</end>" + exact);
    EXPECT_EQ(Times(before_), "40 105 0 65"); // what is left of the transition is 15 frames
    EXPECT_EQ(before_.exactOut.value, 900000000000 - 15 * kFrame);
    EXPECT_EQ(after_.exactIn.value, 1000 + 5 * kFrame);

    Complete("<alignment>start</alignment>", "<start>40</start><end>-1</end>" + exact);
    EXPECT_EQ(before_.exactOut.value, 60 * kFrame + 1000);
}

// Ten frames of the sequence are 9.6 of items at 24: from frame 80 they lead to 89.6, from 50 back
// to 40.4, and back again from either frame beside them.
TEST_F(CutPointsTest, FramesBetweenThoseOfAnotherRateFollowTheExactPoint)
{
    const std::string film = "<rate><timebase>24</timebase></rate>";
    for (const auto& [out, in] : {std::pair{"89", "40"}, std::pair{"90", "41"}}) {
        Complete("",
                 film +
                     "<start>40</start><end>-1</end><in>20</in><velaTicksIn>211680000000"
                     "</velaTicksIn><velaTicksOut>948326400000</velaTicksOut><out>" +
                     out + "</out>",
                 film +
                     "<start>-1</start><end>200</end><out>140</out><velaTicksIn>427593600000"
                     "</velaTicksIn><velaTicksOut>1481760000000</velaTicksOut><in>" +
                     in + "</in>");
        EXPECT_EQ(before_.out.value, 80);
        EXPECT_EQ(before_.exactOut.value, 80 * 10'584'000'000);
        EXPECT_EQ(after_.in.value, 50);
        EXPECT_EQ(after_.exactIn.value, 50 * 10'584'000'000);
    }
}

// The transition is beyond the cut: its 20 frames are taken back, whatever the length of the item.
TEST_F(CutPointsTest, OpenInterchangeKeepsExactPointsBesideTransitions)
{
    const std::string exact =
        "<velaTicksIn>1000</velaTicksIn><velaTicksOut>900000000000</velaTicksOut>"
        "<in>0</in><out>88</out>";
    const std::string before = "<start>40</start><end>-1</end>" + exact;
    const std::string after = "<start>-1</start><end>200</end>" + exact;
    Complete("<alignment>start</alignment>", before, after, true);
    EXPECT_EQ(before_.exactOut.value, 900'000'000'000 - 20 * kFrame);
    EXPECT_EQ(Times(before_), "40 100 0 68");
    Complete("<alignment>end</alignment>", before, after, true);
    EXPECT_EQ(after_.exactIn.value, 1000 + 20 * kFrame);
    EXPECT_EQ(Times(after_), "120 200 20 88");
}

TEST_F(CutPointsTest, EdgesThatCountInTheItemsFramesBecomeTheSequences)
{
    Complete("", "<rate><timebase>50</timebase></rate><velaTicksIn>0</velaTicksIn>"
                 "<start>79</start><end>-1</end><in>0</in><out>160</out>");
    EXPECT_EQ(Times(before_), "40 110 0 140"); // 79 is in the middle of frame 40
}

TEST_F(CutPointsTest, DamagedNumbersDoNoHarm)
{
    const std::string huge = "<start>-1</start><end>99999999999999999999</end>"
                             "<in>-99999999999999999999</in><out>99999999999999999999</out>";
    Complete("<alignment>end</alignment>", "<end>-1</end><in>-99999999999999999999</in>", huge);
    Complete("<cutPointTicks>9999999999999999999</cutPointTicks>", huge, huge);
    SUCCEED();
}

// From 120 to 200, at half speed: 40 frames of the source, as for video.
TEST_F(CutPointsTest, ExactPointsKeepTheirDistanceInTheSource)
{
    const std::string half =
        "<filter><effect><effectid>timeremap</effectid><parameter><parameterid>speed</parameterid>"
        "<value>50</value></parameter></effect></filter>";
    const ObjectHandle sequence = ParseSequence(
        "<rate><timebase>25</timebase></rate><media><audio><track>" +
        Item("<start>0</start><end>-1</end><in>0</in><out>120</out>") +
        "<transitionitem><start>100</start><end>120</end><alignment>end</alignment>"
        "</transitionitem>" +
        Item("<start>-1</start><end>200</end><in>60</in><out>160</out><velaTicksIn>0</velaTicksIn>"
             "<velaTicksOut>812851200000</velaTicksOut>" + // 80 frames
             half) +
        "</track></audio></media>");
    const std::vector<ClipItem> items =
        ItemsOfTrack(FindPath(sequence, {"media", "audio", "track"}), {kFrame}, MediaType::Audio);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[1].times.exactIn.value, 40 * kFrame);
}

} // namespace
} // namespace XPJ

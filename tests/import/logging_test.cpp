#include "import/logging.h"

#include "core/ticks.h"
#include "import/markers.h"
#include "import/xmeml_fixture.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

using LoggingTest = XmemlTest;
using MarkersTest = XmemlTest;

constexpr const char* kPalRate = "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>";

TEST_F(LoggingTest, FieldsComeFromClipFileAndTimecodes)
{
    const ObjectHandle clip = ParseClip(
        std::string(kPalRate) +
            "<duration>50</duration>"
            "<logginginfo><scene>12</scene><shottake>3</shottake><lognote></lognote></logginginfo>"
            "<filmdata><labroll>L1</labroll><keycode><prefix>KU</prefix></keycode></filmdata>",
        "<name>a.mov</name>"
        "<timecode><source>sound</source><string>01:00:00:00</string>"
        "<reel><name>S7</name></reel></timecode>"
        "<timecode><frame>100</frame><displayformat>NDF</displayformat>"
        "<rate><timebase>30</timebase><ntsc>TRUE</ntsc></rate>"
        "<reel><name>T4</name></reel></timecode><media><video/></media>");
    const ObjectHandle info = MakeLoggingInfo(state_, clip);
    struct Expected {
        std::string_view key;
        std::string_view value;
    };
    constexpr Expected expected[] = {
        {"Scene", "12"},
        {"ShotTake", "3"},
        {"FilmLabRoll", "L1"},
        {"FilmKeycodePrefix", "KU"},
        {"ClipName", "a.mov"},
        {"TapeName", "T4"},
        {"SoundRoll", "S7"},
        {"SoundTimeCode", "01:00:00:00"},
        {"MediaFrameRate", "8475667200"},
        {"MediaInPoint", "1016064000000"}, // counted in the clip's own frames
        {"MediaOutPoint", "1524096000000"},
        {"TimecodeFormat", "103"},
        {"CaptureMode", "3"},
    };
    for (const auto& [key, value] : expected)
        EXPECT_EQ(info.GetProperty(key), value) << key;
    EXPECT_FALSE(info.HasProperty("LogNote"));
    EXPECT_FALSE(info.HasProperty("Description"));
}

TEST_F(LoggingTest, SequencesUseTheirOwnTimecode)
{
    const ObjectHandle sequence =
        ParseSequence(std::string(kPalRate) + "<duration>10</duration><timecode><frame>2</frame>"
                                              "<reel><name>T</name></reel></timecode>");
    const ObjectHandle info = MakeLoggingInfo(state_, sequence);
    EXPECT_FALSE(info.HasProperty("ClipName"));
    EXPECT_EQ(info.GetProperty("TapeName"), "T");
    EXPECT_EQ(info.GetProperty("MediaInPoint"), "20321280000");
    EXPECT_EQ(info.GetProperty("MediaOutPoint"), "121927680000");
    EXPECT_EQ(info.GetProperty("TimecodeFormat"), "101");
}

TEST_F(LoggingTest, NothingStatedLeavesTheDefaults)
{
    const ObjectHandle info = MakeLoggingInfo(state_, ParseClip("", "<media><video/></media>"));
    EXPECT_EQ(info.GetProperty("TimecodeFormat"), "102");
    EXPECT_EQ(info.GetProperty("CaptureMode"), "3");
    EXPECT_FALSE(info.HasProperty("MediaInPoint"));
    EXPECT_FALSE(info.HasProperty("MediaFrameRate"));
}

TEST_F(LoggingTest, CommentsLabelsAndGoodFlag)
{
    const ObjectHandle clip = ParseClip(
        "<labels><label2>Mango</label2></labels><logginginfo><good>TRUE</good></logginginfo>"
        "<comments><mastercomment2>b &amp; c</mastercomment2>"
        "<clipcommenta>a</clipcommenta></comments>",
        "<metadata><key>hfl.clip.label.name</key><value>BE.Prefs.LabelColors.3</value></metadata>"
        "<media><video/></media>");
    const ObjectHandle item = document_.NewObject("ClipProjectItem");
    item.SetProperty("Clip_95_Comment_95_A", "old");
    CopyComments(clip, item);
    CopyGoodFlag(clip, item);
    EXPECT_EQ(item.GetProperty("Master_95_Comment_95_2"), "b &amp; c");
    EXPECT_EQ(item.GetProperty("Clip_95_Comment_95_A"), "a");
    EXPECT_FALSE(item.HasProperty("Master_95_Comment_95_1"));
    EXPECT_EQ(item.GetProperty("Column.PropertyBool.Good"), "true");

    CopyLabel(clip, item, "hfl.clip.label.name");
    EXPECT_EQ(item.GetProperty("hfl.clip.label.name"), "BE.Prefs.LabelColors.7");
    CopyItemLabel(state_, clip, item);
    EXPECT_EQ(item.GetProperty("Column.PropertyText.Label"), "BE.Prefs.LabelColors.3");

    const ObjectHandle other = document_.NewObject("ClipProjectItem");
    CopyLabel(Parse("<clip><labels><label2>Beige</label2></labels></clip>"), other, "Label");
    EXPECT_EQ(other.FirstProperty(), nullptr);
}

TEST_F(MarkersTest, TextsAndTimes)
{
    const ObjectHandle sequence = ParseSequence(
        "<marker><name>&quot;A&quot;</name><comment>note</comment><in>10</in><out>-1</out></marker>"
        "<marker><name>B</name><comment> &lt;CHAPTER one</comment><in>10</in><out>12</out>"
        "<velaColor>4281740498</velaColor></marker>"
        "<marker><comment>&lt;CHAPTER></comment><in>x</in></marker>");
    const ObjectHandle markers = TranslateMarkers(document_, sequence, 100);
    std::vector<ObjectHandle> list;
    for (const ObjectHandle& marker : markers.GetChildren("Marker"))
        list.push_back(marker);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].GetProperty("Name"), "\"A\"");
    EXPECT_EQ(list[0].GetProperty("Type"), "Comment");
    EXPECT_EQ(list[0].GetProperty("StartTime"), "1000");
    EXPECT_EQ(list[0].GetProperty("Duration"), "0");
    EXPECT_FALSE(list[0].HasProperty("Color"));
    EXPECT_EQ(list[1].GetProperty("Type"), "Sequence");
    EXPECT_EQ(list[1].GetProperty("Comment"), " one");
    EXPECT_EQ(list[1].GetProperty("Duration"), "200");
    EXPECT_EQ(list[1].GetProperty("Color"), "4281740498");
    EXPECT_EQ(list[2].GetProperty("Type"), "Comment");
    EXPECT_EQ(list[2].GetProperty("StartTime"), "0");
    EXPECT_EQ(list[2].GetProperty("Duration"), "0");
}

TEST_F(MarkersTest, FramesCountInTheNearestRate)
{
    const std::string marker = "<marker><in>1</in><out>3</out></marker>";
    const auto first = [&](const std::string& content, Ticks defaultTicks) {
        return TranslateMarkers(document_, ParseSequence(content + marker), defaultTicks)
            .GetChild("Marker");
    };
    EXPECT_EQ(first(kPalRate, 100).GetProperty("StartTime"), "10160640000");
    EXPECT_FALSE(first("", 0));

    // Timed in ticks: the length alone is stretched to samples.
    const ObjectHandle handOff = first("<rate><timebase>254016000000</timebase></rate>", 100);
    EXPECT_EQ(handOff.GetProperty("StartTime"), "1");
    EXPECT_EQ(handOff.GetProperty("Duration"), "10584000");

    const ObjectHandle damaged = ParseSequence("<marker><in>-99999999999999999999</in>"
                                               "<out>99999999999999999999</out></marker>");
    const ObjectHandle clamped =
        TranslateMarkers(document_, damaged, kNtscFrameTicks).GetChild("Marker");
    EXPECT_EQ(clamped.GetProperty("StartTime"), "-9223372036854775808");
    EXPECT_EQ(clamped.GetProperty("Duration"), "9223372036854775807");
}

} // namespace
} // namespace XPJ

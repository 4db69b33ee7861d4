#include "core/base64.h"
#include "effects/legacy_title.h"
#include "export/channel_layout.h"
#include "export/export_driver.h"
#include "export/marker_record.h"
#include "export/picture_format.h"
#include "project/accessors.h"
#include "project/reader.h"
#include "support/tree.h"
#include "tree/reading.h"

#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

TEST(PixelAspectName, KnowsTheRatiosOfTapes)
{
    struct Row {
        const char* ratio;
        int height;
        const char* name;
        bool anamorphic;
    };
    constexpr Row kRows[] = {
        {"3,2", 1080, "HD-(1280x1080)", false}, {"10,11", 480, "NTSC-601", false},
        {"80,66", 480, "NTSC-601", true}, // as an exact ratio
        {"768,702", 576, "PAL-601", false},     {"1024,702", 576, "PAL-601", true},
        {"4,3", 720, "HD-(960x720)", false},    {"4,3", 960, "HD-(960x720)", false},
        {"4,3", 1080, "HD-(1440x1080)", false}, {"1,1", 1080, "square", false},
        {"4", 1080, "square", false},           {"4,3x", 1080, "square", false},
        {"0,0", 1080, "square", false},         {"99999999999,3", 1080, "square", false},
    };
    for (const Row& row : kRows) {
        const PixelAspect aspect = PixelAspectName(row.ratio, row.height);
        EXPECT_EQ(aspect.name, row.name) << row.ratio;
        EXPECT_EQ(aspect.anamorphic, row.anamorphic) << row.ratio;
    }
}

TEST(MarkerRecord, TakesWhatHostsWrite)
{
    struct Row {
        const char* text;
        const char* expected; // name|type|start|duration|colour; empty for no record
    };
    constexpr Row kRows[] = {
        {R"({"HULMarker":{"mName":"A","mType":"Comment","mStartTime":{"ticks":9007199254740993}}})",
         "A|Comment|9007199254740993|0|"},
        {R"({"mName":"B","mStartTime":{"ticks":"254016000000"},"mDuration":{"ticks":-5}})",
         "B||254016000000|-5|"},
        {R"({"mCuePointList":[{"mKey":"x","mValue":"{\"color\":1}"},)"
         R"({"mKey":"keywordExtHULv1_G","mValue":"{\"color\":4281740498}"}]})",
         "||0|0|4281740498"},
        {R"({"mCuePointList":[{"mKey":"keywordExtHULv1_G","mValue":"{\"color\":0}"}]})", "||0|0|"},
        {"{&quot;mName&quot;:&quot;A &amp;lt; B&quot;}", "A &lt; B||0|0|"},
        {R"({"mStartTime":{"ticks":1e300},"mDuration":7,"mName":3,"mCuePointList":{}})",
         "||9223372036854775807|0|"},
        {R"({"mName":"half \ud83d","mStartTime":{"ticks":5}})", "half \uFFFD||5|0|"},
        {R"({"mName":"\ude00 \ud83d\ude00 \\ud83d"})", "\uFFFD \U0001F600 \\ud83d||0|0|"},
        {"{\"mName\":\"bytes \xED\xA0\xBD\"}", "bytes \uFFFD||0|0|"},
        {"{\"mName\":\"cut", ""},
        {"[1]", ""},
        {"", ""},
    };
    for (const Row& row : kRows) {
        const auto record = ParseMarkerRecord(row.text);
        EXPECT_EQ(record ? record->name + "|" + record->type + "|" + TickText(record->start) + "|" +
                               TickText(record->duration) + "|" + record->colour
                         : "",
                  row.expected)
            << row.text;
    }
}

// A vector a row: its `ChannelType`, and the source clip of each channel.
struct Vector {
    const char* type;
    std::vector<const char*> sourceClips;
};

ObjectHandle MasterOf(Document& document, const std::vector<Vector>& vectors)
{
    const ObjectHandle list = document.NewObject("ClipChannelVectors");
    for (const Vector& vector : vectors) {
        const ObjectHandle channels = document.NewObject("ClipChannels");
        for (const char* const sourceClip : vector.sourceClips)
            channels.AddChild("ClipChannelItem",
                              Build(document, {"ClipChannelSerializer",
                                               {{"SourceClipIndex", sourceClip},
                                                {"mSourceChannelIndex", sourceClip}}}));
        const ObjectHandle node =
            Build(document, {"ClipChannelVectorSerializer", {{"ChannelType", vector.type}}});
        node.AddChild(channels);
        list.AddChild("ClipChannelVectorItem", node);
    }
    const ObjectHandle groups = document.NewObject("ClipChannelGroupVectorSerializer");
    groups.AddChild(list);
    const ObjectHandle master = document.NewObject("MasterClip");
    master.AddChild("AudioClipChannelGroups", groups);
    return master;
}

TEST(ChannelLayout, IsToldFromTheVectors)
{
    struct Row {
        std::vector<Vector> vectors;
        int count;
        int type;
    };
    const Row rows[] = {
        {{}, 0, 0},
        {{{"0", {"0"}}}, 1, 0},
        {{{"0", {"0"}}, {"0", {"0"}}}, 2, 6},                             // left and right
        {{{"0", {"0"}}, {"0", {"0"}}, {"0", {"1"}}, {"0", {"1"}}}, 4, 6}, // of two clips
        {{{"0", {"0"}}, {"0", {"0"}}, {"0", {"0"}}}, 3, 7},               // one whole
        {{{"0", {"0"}}, {"0", {"1"}}}, 2, 0},                             // independent
        {{{"1", {"0", "0"}}}, 2, 1},
        {{{"2", {"0", "0", "0", "0", "0", "0"}}}, 6, 2},
        {{{"3", {"0", "-1", "4294967295", "18446744073709551615"}}}, 1, 7}, // unused channels
        {{{"0", {"-1"}}}, 0, 0},
        {{{"3", std::vector<const char*>(5000, "0")}}, 64, 7},
        {{{"3", std::vector<const char*>(5000, "-1")}}, 0, 7},
    };
    for (const Row& row : rows) {
        Document document;
        const ChannelLayout layout = ChannelLayoutOf(MasterOf(document, row.vectors));
        EXPECT_EQ(layout.count, row.count) << &row - rows;
        EXPECT_EQ(layout.type, row.type) << &row - rows;
    }
}

// A project with one clip, whose picture and sound have the given rates.
std::string ClipProject(const std::string& frameTicks, const std::string& sampleTicks)
{
    return R"(<VelaData Version="3">
<Project ObjectID="1"><RootProjectItem ObjectURef="root"/></Project>
<RootProjectItem ObjectUID="root"><ProjectItemContainer><Items><Item ObjectURef="item"/></Items>
</ProjectItemContainer></RootProjectItem>
<ClipProjectItem ObjectUID="item"><MasterClip ObjectURef="master"/></ClipProjectItem>
<MasterClip ObjectUID="master"><Clips><Clip ObjectRef="2"/><Clip ObjectRef="3"/></Clips></MasterClip>
<VideoClip ObjectID="2"><Clip><Source ObjectRef="4"/><InPoint>99999999999</InPoint></Clip></VideoClip>
<AudioClip ObjectID="3"><Clip><Source ObjectRef="4"/></Clip></AudioClip>
<VideoMediaSource ObjectID="4"><MediaSource><Media ObjectURef="medium"/></MediaSource></VideoMediaSource>
<Media ObjectUID="medium"><Title>A &amp; B.mov</Title><VideoStream ObjectRef="5"/><AudioStream ObjectRef="6"/></Media>
<VideoStream ObjectID="5"><Duration>-9223372036854775808</Duration><FrameRate>)" +
           frameTicks + "</FrameRate></VideoStream>\n<AudioStream ObjectID=\"6\"><FrameRate>" +
           sampleTicks + "</FrameRate></AudioStream>\n</VelaData>\n";
}

// The `clip`; null with an exception's loss.
ObjectHandle ExportClip(const std::string& project, Document& document)
{
    std::istringstream text(project);
    ObjectHandle root;
    EXPECT_EQ(ReadProjectDocument(text, document, root), kReadDone);
    SilentProgress progress;
    IssueSet issues;
    ObjectHandle xmeml;
    EXPECT_EQ(TranslateProjectDocument(root, {}, progress, document, issues, xmeml), kSuccess);
    return FindPath(xmeml, {"project", "children", "clip"});
}

TEST(ExportClips, RatesThatCannotBe)
{
    Document document;
    const auto faultOf = [&](const char* frameTicks, const char* sampleTicks) -> std::string {
        try {
            ExportClip(ClipProject(frameTicks, sampleTicks), document);
        } catch (const DocumentFault& fault) {
            return fault.what();
        }
        return "none";
    };
    EXPECT_EQ(faultOf("0", "5292000"), "media <A & B.mov> has a frame length of 0");
    EXPECT_EQ(faultOf("8475667200", "0"), "the sound of media <A & B.mov> has a frame length of 0");
    for (const char* const noRate : {"9223372036854775807", "-1"}) {
        const ObjectHandle clip = ExportClip(ClipProject(noRate, "5292000"), document);
        EXPECT_EQ(FindPath(clip, {"media", "rate"}).GetProperty("timebase"), "30") << noRate;
        EXPECT_EQ(clip.GetProperty("in"), "11") << noRate;
        EXPECT_FALSE(clip.GetChild("media").HasProperty("duration")) << noRate;
    }
}

// The names of the synthetic items that an export of the media's content reports.
std::string LostItem(const std::string& media)
{
    std::string project = ClipProject("8475667200", "5292000");
    const std::string start = "<Media ObjectUID=\"medium\">";
    project.insert(project.find(start) + start.size(), media);
    std::istringstream text(project);
    Document document;
    ObjectHandle root;
    EXPECT_EQ(ReadProjectDocument(text, document, root), kReadDone);
    SilentProgress progress;
    IssueSet issues;
    ObjectHandle xmeml;
    EXPECT_EQ(TranslateProjectDocument(root, {}, progress, document, issues, xmeml), kSuccess);
    const ObjectHandle clip = FindPath(xmeml, {"project", "children", "clip"});
    EXPECT_EQ(
        FindPath(clip, {"media", "video", "track", "clipitem", "file"}).GetProperty("mediaSource"),
        "Slug");
    EXPECT_EQ(issues.size(), 1u);
    return issues.empty() ? std::string() : issues.begin()->clip;
}

TEST(ExportClips, ALostTitleIsNamedByItsWords)
{
    const auto mediaOf = [](const char* path, const std::vector<std::string_view>& lines) {
        XPJ::Title title;
        title.frame = {720, 480, 1.0};
        title.texts.push_back({.font = {}, .lines = lines});
        return std::string("<FilePath>") + path + "</FilePath><Title>Text</Title>" +
               "<ImporterPrefs Encoding=\"base64\">" + EncodeBase64(LegacyTitleDocument(title)) +
               "</ImporterPrefs>";
    };
    const char* const kTitle = "1414091852";
    EXPECT_EQ(LostItem(mediaOf(kTitle, {"Tom &amp; Co", " ", "live"})), "Text: Tom & Co / live");
    EXPECT_EQ(LostItem(mediaOf(kTitle, {""})), "Text");
    const std::string words = LostItem(mediaOf(kTitle, std::vector<std::string_view>(100000, "é")));
    EXPECT_LT(words.size(), 140u);
    EXPECT_TRUE(words.starts_with("Text: é / é") && words.ends_with("..."));
    // Other media may hold anything in their preferences.
    EXPECT_EQ(LostItem(mediaOf("1129270320", {"words"})), "Text");
    EXPECT_EQ(LostItem("<FilePath>1414091852</FilePath><Title>Text</Title>"), "Text");
}

TEST(ExportClips, TwoExportsOfAProcessShareNoId)
{
    Document document;
    const std::string project = ClipProject("8475667200", "5292000");
    const std::string first(ExportClip(project, document).GetProperty("id"));
    EXPECT_TRUE(first.starts_with("masterclip-"));
    EXPECT_NE(ExportClip(project, document).GetProperty("id"), first);
}

} // namespace
} // namespace XPJ::RVX

#include "import/master_clips.h"

#include "import/collect.h"
#include "import/master_builder.h"
#include "import/merge.h"
#include "import/multiclips.h"
#include "import/project_items.h"
#include "import/xmeml_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace XPJ {
namespace {

const std::string kRate = "<rate><timebase>25</timebase></rate>";
const std::string kPicture = "<video><samplecharacteristics><width>1280</width>"
                             "<height>720</height></samplecharacteristics></video>";

std::string Sound(int channels)
{
    return "<audio><channelcount>" + std::to_string(channels) + "</channelcount></audio>";
}

std::string File(const std::string& id, const std::string& media)
{
    return "<file id=\"" + id + "\"><name>" + id + ".mov</name><duration>100</duration>" + kRate +
           "<media>" + media + "</media></file>";
}

// Items need ids of their own: one that is there already is the same item.
std::string Item(const std::string& content)
{
    static int number = 0;
    return "<clipitem id=\"i" + std::to_string(++number) + "\">" + content + "</clipitem>";
}

std::string Track(const std::string& file, const std::string& item = "")
{
    return "<track>" + Item(item + file) + "</track>";
}

std::string Clip(const std::string& id, const std::string& fields, const std::string& video,
                 const std::string& audio = "")
{
    return "<clip id=\"" + id + "\"><name>" + id + "</name>" + kRate + fields + "<media><video>" +
           video + "</video><audio>" + audio + "</audio></media></clip>";
}

std::string MasterId(const std::string& id)
{
    return "<masterclipid>" + id + "</masterclipid>";
}

class MasterClipsTest : public XmemlTest {
protected:
    // The elements of a bin, after the collect pass.
    std::vector<ObjectHandle> Collect(const std::string& content)
    {
        const ObjectHandle children = Parse("<bin><children>" + content + "</children></bin>");
        EXPECT_TRUE(CollectReferences(state_, children));
        std::vector<ObjectHandle> elements;
        for (const ObjectHandle& child : children.GetChild("children").GetChildren())
            elements.push_back(child);
        return elements;
    }

    void TranslateAll(const std::vector<ObjectHandle>& clips)
    {
        for (const ObjectHandle& clip : clips)
            TranslateMasterClipItems(state_, clip, root_);
    }

    std::vector<std::string> ItemNames() const
    {
        std::vector<std::string> names;
        for (const ObjectHandle& item : root_.GetChildren("ProjectItem"))
            names.emplace_back(item.GetProperty("Name"));
        return names;
    }

    ObjectHandle Master(std::string_view masterClipId, std::string_view fileId,
                        MediaType type = MediaType::Video) const
    {
        return state_.masterClips.Find(masterClipId, fileId, 0, type);
    }

    // An item of a sequence.
    ObjectHandle ParseItem(const std::string& content)
    {
        return FindPath(
            ParseSequence("<media><video><track>" + Item(content) + "</track></video></media>"),
            {"media", "video", "track", "clipitem"});
    }

    ObjectHandle root_ = document_.NewObject("RootProjectItem");
};

std::string GroupText(ObjectHandle master)
{
    std::string text;
    const ObjectHandle groups = master.GetChild("AudioClipChannelGroups");
    for (const ObjectHandle& group : groups.GetChildren("ClipChannelVectorItem")) {
        text.append(text.empty() ? "" : " ").append(group.GetProperty("ChannelType")).append(":");
        for (const ObjectHandle& item : group.GetChildren("ClipChannelItem"))
            text.append("(")
                .append(item.GetProperty("SourceClipIndex"))
                .append(",")
                .append(item.GetProperty("mSourceChannelIndex"))
                .append(")");
    }
    return text;
}

TEST_F(MasterClipsTest, ChannelsAreGroupedByTheKindOfTheSound)
{
    const std::string vela = "<video><samplecharacteristics><VelaCodec>DNxHD</VelaCodec>"
                             "</samplecharacteristics></video>";
    const struct {
        std::string media;
        bool exploded;
        std::string groups;
    } kCases[] = {
        {Sound(1), false, "0:(0,0)"},
        {Sound(1) + Sound(1), false, "0:(0,0) 0:(1,0)"},
        {Sound(2), false, "0:(0,0) 0:(0,1)"},
        {Sound(2), true, "1:(0,0)(0,1)"},
        {Sound(6), false, "2:(0,0)(0,1)(0,2)(0,3)(0,4)(0,5)"},
        {Sound(4), false, "0:(0,0) 0:(0,1) 0:(0,2) 0:(0,3)"},
        {vela + Sound(3), false, "0:(0,0) 0:(0,1) 0:(0,2)"},
        {kPicture, false, ""},
    };
    for (const auto& row : kCases) {
        ImportState state(document_, progress_, issues_);
        const std::string clip = Clip("c", MasterId("c"), Track(File("f", row.media)));
        const ObjectHandle element = Parse(clip);
        if (row.exploded)
            element.SetProperty("explodedTracks", "true");
        ASSERT_TRUE(CollectReferences(state, element));
        CollectClip(state, element);
        const std::vector<ObjectHandle> masters = state.masterClips.Entries();
        ASSERT_FALSE(masters.empty()) << row.media;
        EXPECT_EQ(GroupText(masters.front()), row.groups) << row.media;
    }
}

TEST_F(MasterClipsTest, PointsOfMinusOneAreNotSet)
{
    Collect(Clip("a", MasterId("a") + "<in>-1</in><out>-1</out>", Track(File("f", kPicture))) +
            Clip("b", MasterId("b") + "<in>5</in><out>-1</out>", Track("<file id=\"f\"/>")));
    const ObjectHandle a = VideoClipOf(Master("a", "f"));
    const ObjectHandle b = VideoClipOf(Master("b", "f"));
    EXPECT_FALSE(a.HasProperty("InPoint") || a.HasProperty("OutPoint"));
    EXPECT_EQ(b.GetProperty("InPoint"), "50803200000");
    EXPECT_FALSE(b.HasProperty("OutPoint"));
    EXPECT_NE(Master("a", "f"), Master("b", "f")); // each its own, since both say whose they are
}

TEST_F(MasterClipsTest, ASilentClipKeepsItsMarkersOnThePicture)
{
    const std::string marker = "<marker><name>M</name><in>1</in><out>-1</out></marker>";
    Collect(Clip("a", MasterId("a") + marker, Track(File("f", kPicture))) +
            Clip("b", MasterId("b") + marker, Track(File("g", kPicture + Sound(1)))));
    EXPECT_TRUE(VideoClipOf(Master("a", "f")).GetChild("Markers").HasChild("Marker"));
    EXPECT_FALSE(VideoClipOf(Master("b", "g")).GetChild("Markers").HasChild("Marker"));
    EXPECT_TRUE(ChannelsOf(Master("b", "g")).front().clip.GetChild("Markers").HasChild("Marker"));
}

// An item on a track may say little about its medium.
TEST_F(MasterClipsTest, AnItemFindsItsMasterFromAnyTrack)
{
    Collect(Clip("m", MasterId("m"), Track(File("f", kPicture + Sound(2)))));
    const ObjectHandle master = Master("m", "f");
    ASSERT_TRUE(master);
    const struct {
        std::string item;
        MediaType type;
        int track;
        bool found;
    } kCases[] = {
        {MasterId("m") + "<file id=\"f\"/>", MediaType::Video, 0, true},
        {"<file id=\"f\"/>", MediaType::Video, 3, true},
        {MasterId("m") + "<file id=\"f\"/><sourcetrack><mediatype>audio</mediatype>"
                         "<trackindex>2</trackindex></sourcetrack>",
         MediaType::Audio, 1, true},
        {MasterId("other") + "<file id=\"f\"/>", MediaType::Audio, 0, true}, // some clip's will do
        {MasterId("m") + "<file id=\"unknown\"/>", MediaType::Video, 0, false},
        {MasterId("m"), MediaType::Video, 0, false},
    };
    for (const auto& row : kCases) {
        const ObjectHandle item = ParseItem(row.item);
        EXPECT_EQ(MasterForItem(state_, item, row.type, row.track) == master, row.found)
            << row.item;
    }
}

TEST_F(MasterClipsTest, ASecondClipOfAMasterIsASecondItem)
{
    const std::vector<ObjectHandle> clips =
        Collect(Clip("m", MasterId("m"), Track(File("f", kPicture))) +
                Clip("n", MasterId("m"), Track("<file id=\"f\"/>")) +
                Clip("o", MasterId("o"), Track("<file id=\"nowhere\"/>")));
    TranslateAll(clips);
    EXPECT_EQ(ItemNames(), (std::vector<std::string>{"m", "n"}));
    EXPECT_EQ(Master("m", "f").GetProperty("Name"), "n"); // the last one names it
}

TEST_F(MasterClipsTest, LayersAreMastersOfTheirOwn)
{
    const std::string layers = "<video><layerindex>0</layerindex></video>"
                               "<video><layerindex>1</layerindex></video>";
    const std::string file =
        "<file id=\"f\"><name>a.lyd</name><media>" + layers + "</media></file>";
    TranslateAll(Collect(Clip("c", MasterId("c"), Track(file))));
    EXPECT_EQ(ItemNames().size(), 2u);
    const ObjectHandle item = ParseItem(
        MasterId("c") +
        "<file id=\"f\"/><sourcetrack><mediatype>video</mediatype><trackindex>2</trackindex>"
        "</sourcetrack></clipitem>");
    EXPECT_EQ(MasterForItem(state_, item, MediaType::Video, 0),
              state_.masterClips.Find("c", "f", 1, MediaType::Video));
}

TEST_F(MasterClipsTest, ASubclipLimitsTheSourcesOfItsMaster)
{
    const std::string info = "<duration>50</duration><subclipinfo><startoffset>10</startoffset>"
                             "<endoffset>20</endoffset></subclipinfo>";
    const struct {
        std::string item;
        std::string start;
        std::string total;
    } kCases[] = {
        {"<duration>50</duration>", "101606400000", "812851200000"},
        // Soft limits stand on the source alone.
        {"<duration>50</duration><velaSoftStartOffset>10</velaSoftStartOffset>", "101606400000",
         "1016064000000"},
    };
    for (const auto& row : kCases) {
        ImportState state(document_, progress_, issues_);
        const ObjectHandle clip =
            Parse(Clip("c", MasterId("c") + info, Track(File("f", kPicture), row.item)));
        ASSERT_TRUE(CollectReferences(state, clip));
        CollectClip(state, clip);
        TranslateMasterClipItems(state, clip, root_);
        const ObjectHandle source = FirstSourceOf(state.masterClips.Entries().front());
        EXPECT_EQ(source.GetProperty("StartBoundary"), row.start) << row.item;
        EXPECT_EQ(source.GetProperty("EndBoundary"), "609638400000") << row.item;
        EXPECT_EQ(source.GetProperty("OriginalDuration"), row.total) << row.item;
    }
}

// ---- Merged clips

std::string Separate(const std::string& id, const std::string& suffix)
{
    return Clip(id, MasterId(id), Track(File("v" + suffix, kPicture)),
                Track(File("a" + suffix, Sound(1))) + Track(File("b" + suffix, Sound(1))));
}

TEST_F(MasterClipsTest, PartsOfAMergedClipAreShownByOneItem)
{
    TranslateAll(Collect(Separate("m", "1")));
    EXPECT_TRUE(ItemNames().empty());
    MergePass(state_, root_);
    ASSERT_EQ(ItemNames(), std::vector<std::string>{"m"});
    const ObjectHandle merged = root_.GetChild("ProjectItem").GetChild("MasterClip");
    EXPECT_EQ(merged.GetProperty("FCPMergedMasterKind"), "V1A2");
    EXPECT_EQ(GroupText(merged), "0:(0,0) 0:(1,0)");
    EXPECT_EQ(SequenceOf(merged).GetProperty("BE.Sequence.IsMergedClip"), "true");
    for (const std::string_view file : {"v1", "a1", "b1"}) {
        const ObjectHandle part =
            Master("m", file, file == "v1" ? MediaType::Video : MediaType::Audio);
        EXPECT_EQ(part.GetProperty("Name"), "m_IGNORE");
        EXPECT_EQ(part.GetProperty("MZ.MergeClip.ParentGUID"), merged.GetProperty("uid"));
    }
}

TEST_F(MasterClipsTest, WhatCannotBeMergedStaysInItsBin)
{
    const std::string slug = "<file id=\"Slug1\"><mediaSource>Slug</mediaSource><media><audio/>"
                             "</media></file>";
    TranslateAll(
        Collect(Clip("s", MasterId("s"), Track(File("f", kPicture)), Track(File("e", "")))));
    EXPECT_TRUE(ItemNames().empty()); // until it is known that the second file has nothing
    MergePass(state_, root_);
    EXPECT_EQ(ItemNames(), std::vector<std::string>{"s"});
    EXPECT_EQ(Master("s", "f").GetProperty("Name"), "s");

    // A slug beside a file makes no merged clip of it.
    TranslateAll(Collect(Clip("t", MasterId("t"), Track(File("g", kPicture)), Track(slug))));
    EXPECT_FALSE(HasValue(Master("t", "g"), "FCPMergedMasterClipID"));
}

TEST_F(MasterClipsTest, ClipsWithoutMasterIdDoNotMergeWithEachOther)
{
    const auto separate = [](const std::string& id, const std::string& suffix) {
        return Clip(id, "", Track(File("v" + suffix, kPicture)),
                    Track(File("a" + suffix, Sound(1))));
    };
    TranslateAll(Collect(separate("m", "1") + separate("n", "2") +
                         Clip("o", "", Track(File("f", kPicture)))));
    MergePass(state_, root_);
    EXPECT_EQ(ItemNames(), (std::vector<std::string>{"o", "m", "n"}));
}

TEST_F(MasterClipsTest, AFileOfAnotherMarksASubclip)
{
    Collect(Clip("m", MasterId("m"), Track(File("v-1", kPicture)), Track(File("a", Sound(1)))));
    EXPECT_EQ(Master("m", "v-1").GetProperty("FCPMergedMasterKind"), "V1,SUBCLIP");
    EXPECT_EQ(Master("m", "a", MediaType::Audio).GetProperty("FCPMergedMasterKind"), "A1");
}

// ---- Generators

std::string Generator(const std::string& effect)
{
    return "<track><generatoritem id=\"g\"><name>G</name><effect>" + effect +
           "</effect></generatoritem></track>";
}

TEST_F(MasterClipsTest, GeneratorsThatHaveNoCounterpartAreReported)
{
    const auto colour = [](const std::string& parameterId) {
        return "<effectid>Color</effectid><name>Color</name><parameter><parameterid>" +
               parameterId +
               "</parameterid><value><alpha>255</alpha><red>255</red><green>0</green>"
               "<blue>0</blue></value></parameter>";
    };
    const struct {
        std::string effect;
        std::string path; // of the Media; none where the item is dropped
        std::size_t issues;
    } kCases[] = {
        {colour("fillcolor"), "1129270354", 0},
        {colour("fillcolour"), "", 1},
        {"<effectid>Clouds</effectid><name>Clouds</name>", "1414680150", 1},
    };
    for (const auto& row : kCases) {
        IssueSet issues;
        ImportState state(document_, progress_, issues);
        const ObjectHandle clip = Parse(Clip("c", "", Generator(row.effect)));
        CollectClip(state, clip);
        const ObjectHandle root = document_.NewObject("RootProjectItem");
        EXPECT_EQ(TranslateMasterClipItems(state, clip, root), row.path.empty() ? 0 : 1);
        const ObjectHandle source =
            FirstSourceOf(root.GetChild("ProjectItem").GetChild("MasterClip"));
        EXPECT_EQ(source.GetChild("Media").GetProperty("FilePath"), row.path) << row.effect;
        EXPECT_EQ(issues.size(), row.issues) << row.effect;
    }
}

// ---- Multiclips

std::string Angle(const std::string& id, const std::string& file, bool active = false)
{
    return std::string("<angle>") + (active ? "<activevideoangle>TRUE</activevideoangle>" : "") +
           Clip(id, MasterId(id) + "<duration>100</duration>", Track(file),
                Track("<file id=\"f" + id + "\"/>")) +
           "</angle>";
}

std::string Multiclip(const std::string& id, const std::string& collapsed)
{
    return "<multiclip id=\"" + id + "\"><name>M</name><masterclipid>mm</masterclipid><collapsed>" +
           collapsed + "</collapsed>" + Angle("1", File("f1", kPicture + Sound(1))) +
           Angle("2",
                 "<file id=\"Slug2\"><mediaSource>Slug</mediaSource><media><audio/></media>"
                 "</file>",
                 true) +
           Angle("3", File("f3", kPicture + Sound(2))) + "</multiclip>";
}

std::string ClipOf(const std::string& id, const std::string& multiclip)
{
    return Clip(id, MasterId(id), Track(multiclip));
}

int CountOf(ObjectHandle node, Name key)
{
    int count = 0;
    for ([[maybe_unused]] const ObjectHandle& child : node.GetChildren(key))
        ++count;
    return count;
}

TEST_F(MasterClipsTest, AMulticlipHasTwoTracksForEachAngle)
{
    const std::vector<ObjectHandle> clips = Collect(ClipOf("c", Multiclip("x", "FALSE")));
    EXPECT_EQ(ActiveAngle(state_, FindMulticlip(clips.front())), 2);
    TranslateMulticlipItem(state_, clips.front(), root_);
    const ObjectHandle master = state_.multiclips["x"];
    EXPECT_EQ(master.GetProperty("Source.Monitor.Multicam.Enabled"), "true");
    EXPECT_EQ(ChannelsOf(master).size(), 32u);

    std::string found;
    for (const ObjectHandle& group : SequenceOf(master).GetChildren("TrackGroup")) {
        found.append(group.GetProperty("NextTrackID")).append(":");
        for (const ObjectHandle& track : group.GetChildren("Track"))
            found.append(" ").append(std::to_string(CountOf(track, "TrackItem")));
        found.append("; ");
    }
    EXPECT_EQ(found, "4: 1 0 1; 5: 1 1 1; "); // a slug is heard, not seen
    EXPECT_EQ(state_.linkGroups.size(), 2u);
}

TEST_F(MasterClipsTest, EqualMulticlipsShareAMaster)
{
    const std::string same = "<multiclip id=\"y\"><masterclipid>mm</masterclipid>"
                             "<collapsed>false</collapsed><angle><clip id=\"1\"/></angle>"
                             "<angle><clip id=\"2\"/></angle><angle><clip id=\"3\"/></angle>"
                             "</multiclip>";
    Collect(ClipOf("c", Multiclip("x", "FALSE")) + ClipOf("d", same));
    EXPECT_TRUE(state_.multiclips["x"]);
    EXPECT_EQ(state_.multiclips["x"], state_.multiclips["y"]);
}

TEST_F(MasterClipsTest, ACollapsedMulticlipIsTheClipOfItsActiveAngle)
{
    const std::string multiclip = "<multiclip id=\"x\"><collapsed>TRUE</collapsed>" +
                                  Angle("1", File("f1", kPicture)) +
                                  Angle("3", File("f3", kPicture), true) + "</multiclip>";
    const std::vector<ObjectHandle> clips = Collect(ClipOf("c", multiclip));
    EXPECT_TRUE(state_.multiclips.empty());
    const ObjectHandle item = FindPath(clips.front(), {"media", "video", "track", "clipitem"});
    EXPECT_EQ(MasterForItem(state_, item, MediaType::Video, 0), Master("3", "f3"));
    TranslateAll(clips);
    EXPECT_EQ(ItemNames(), std::vector<std::string>{"3"});
}

} // namespace
} // namespace XPJ

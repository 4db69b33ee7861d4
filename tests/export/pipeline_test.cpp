// Exports as a whole beyond what a case can show: stopping, growth, circles, rates that cannot be.
#include "support/count_of.h"
#include "support/document_text.h"
#include "support/export_text.h"
#include "support/test_progress.h"
#include "xmeml/reader.h"

#include <set>
#include <stdexcept>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

Exported Export(const std::string& project, Progress* progress = nullptr)
{
    ExportOptions options;
    options.projectTitle = "A & <B> &amp; C";
    return ExportText(project, options, progress);
}

std::string ProjectOf(const std::string& items, const std::string& objects)
{
    return "<VelaData Version=\"3\"><Project ObjectID=\"1\"><RootProjectItem ObjectURef=\"root\"/>"
           "</Project><RootProjectItem ObjectUID=\"root\"><ProjectItemContainer><Items>" +
           items + "</Items></ProjectItemContainer></RootProjectItem>" + objects + "</VelaData>";
}

std::string Bin(const std::string& id, const std::string& inner)
{
    return "<BinProjectItem ObjectUID=\"" + id +
           "\"><ProjectItem><Name>B</Name></ProjectItem><ProjectItemContainer><Items>"
           "<Item ObjectURef=\"" +
           inner + "\"/></Items></ProjectItemContainer></BinProjectItem>";
}

// A clip of media with that frame and sample length.
std::string ClipProject(const std::string& frameTicks, const std::string& sampleTicks)
{
    return ProjectOf("<Item ObjectURef=\"item\"/>", R"(
<ClipProjectItem ObjectUID="item"><MasterClip ObjectURef="master"/></ClipProjectItem>
<MasterClip ObjectUID="master"><Clips><Clip ObjectRef="2"/><Clip ObjectRef="3"/></Clips></MasterClip>
<VideoClip ObjectID="2"><Clip><Source ObjectRef="4"/><InPoint>99999999999</InPoint></Clip></VideoClip>
<AudioClip ObjectID="3"><Clip><Source ObjectRef="4"/></Clip></AudioClip>
<VideoMediaSource ObjectID="4"><MediaSource><Media ObjectURef="m"/></MediaSource></VideoMediaSource>
<Media ObjectUID="m"><Title>A &amp; B.mov</Title><VideoStream ObjectRef="5"/><AudioStream ObjectRef="6"/></Media>
<VideoStream ObjectID="5"><Duration>-9223372036854775808</Duration><FrameRate>)" +
                                                        frameTicks +
                                                        "</FrameRate></VideoStream>"
                                                        "<AudioStream ObjectID=\"6\"><FrameRate>" +
                                                        sampleTicks + "</FrameRate></AudioStream>");
}

// `count` sequences of that frame length, each shown by the one before it, the first by the last.
std::string CircleOf(std::size_t count, const std::string& frameTicks)
{
    std::string items;
    std::string objects;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string n = std::to_string(i);
        const std::string next = std::to_string((i + 1) % count);
        const auto id = [&](int kind) {
            return " ObjectID=\"" + std::to_string(10 * i + static_cast<std::size_t>(kind)) + "\">";
        };
        const auto ref = [&](int kind) {
            return " ObjectRef=\"" + std::to_string(10 * i + static_cast<std::size_t>(kind)) +
                   "\"/>";
        };
        items += "<Item ObjectURef=\"i" + n + "\"/>";
        objects += "<ClipProjectItem ObjectUID=\"i" + n + "\"><MasterClip ObjectURef=\"c" + n +
                   "\"/></ClipProjectItem><MasterClip ObjectUID=\"c" + n + "\"><Clips><Clip" +
                   ref(10) + "</Clips></MasterClip><VideoClip" + id(10) + "<Clip><Source" +
                   ref(11) + "</Clip></VideoClip><VideoSequenceSource" + id(11) +
                   "<SequenceSource><Sequence ObjectURef=\"s" + n +
                   "\"/></SequenceSource></VideoSequenceSource><Sequence ObjectUID=\"s" + n +
                   "\"><Name>Cut</Name><TrackGroups><TrackGroup>"
                   "<First>228cda18-3625-4d2d-951e-348879e4ed93</First><Second" +
                   ref(12) + "</TrackGroup></TrackGroups></Sequence><VideoTrackGroup" + id(12) +
                   "<TrackGroup><FrameRate>" + frameTicks + "</FrameRate><Tracks><Track" + ref(13) +
                   "</Tracks></TrackGroup></VideoTrackGroup><VideoClipTrack" + id(13) +
                   "<ClipTrack><ClipItems><TrackItems><TrackItem" + ref(14) +
                   "</TrackItems></ClipItems></ClipTrack></VideoClipTrack><VideoClipTrackItem" +
                   id(14) + "<ClipTrackItem><SubClip" + ref(15) +
                   "</ClipTrackItem></VideoClipTrackItem><SubClip" + id(15) +
                   "<MasterClip ObjectURef=\"c" + next + "\"/></SubClip>";
    }
    return ProjectOf(items, objects);
}

// Ids of the sequences that are written out, and how deep they are in each other.
int CollectIds(const Element& element, std::multiset<std::string>& ids)
{
    int depth = 0;
    for (const Element& child : element.children)
        depth = std::max(depth, CollectIds(child, ids));
    if (element.name != "sequence")
        return depth;
    if (!element.children.empty())
        ids.emplace(element.Attribute("id"));
    return depth + 1;
}

TEST(Export, StopsAtEachCheck)
{
    const std::string project = ProjectOf("<Item ObjectURef=\"b\"/>", Bin("b", "none"));
    const auto job = [&](Progress& progress) { return Export(project, &progress).result; };
    EXPECT_GE(ExpectStopsAtEachCheck(job, kSuccess, kAborted).checks, 3u);
}

TEST(Export, ProjectsOfNothing)
{
    EXPECT_EQ(Export("<VelaData Version=\"3\"></VelaData>").result, kNoFCPDataFound);
    const Element project = ParseElements(Export(ProjectOf("", "")).xmeml).Child("project");
    EXPECT_EQ(project.Child("name").text, "A &amp; &lt;B&gt; &amp; C");
    EXPECT_EQ(project.children.size(), 1u);
}

// All of them come back, as deep as documents are read.
TEST(Export, BinsMayNestDeepAndInACircle)
{
    constexpr int kCount = 20000;
    std::string bins;
    for (int i = 0; i < kCount; ++i)
        bins += Bin("b" + std::to_string(i), "b" + std::to_string((i + 1) % kCount));
    const std::string text = Export(ProjectOf("<Item ObjectURef=\"b0\"/>", bins)).xmeml;
    EXPECT_GE(CountOf(text, "<bin>"), static_cast<std::size_t>(kCount));
    Document back;
    ObjectHandle read;
    EXPECT_EQ(ParseFCPXML(text, back, read), kReadDone);
}

// `count` bins in each other, the innermost with `sequences` that show each other.
std::string NestedBins(int count, std::size_t sequences)
{
    std::string text = CircleOf(sequences, "10160640000");
    std::string items;
    for (std::size_t i = 0; i < sequences; ++i)
        items += "<Item ObjectURef=\"i" + std::to_string(i) + "\"/>";
    text.replace(text.find(items), items.size(), "<Item ObjectURef=\"b1\"/>");
    std::string bins;
    for (int i = 1; i < count; ++i)
        bins += Bin("b" + std::to_string(i), "b" + std::to_string(i + 1));
    bins += Bin("b" + std::to_string(count), "i0");
    return text.insert(text.rfind("</VelaData>"), bins);
}

// What is written at the limits of bins and of sequences in each other is read, and what is beyond
// the limit is named.
TEST(Export, BinsAndSequencesAtTheirLimits)
{
    constexpr int kDeepest = 401;
    constexpr std::size_t kSequences = 32;
    for (const int bins : {kDeepest - 1, kDeepest, kDeepest + 1}) {
        for (const std::size_t sequences : {kSequences - 1, kSequences, kSequences + 1}) {
            const Exported exported = Export(NestedBins(bins, sequences));
            const std::string row =
                std::to_string(bins) + " bins, " + std::to_string(sequences) + " sequences";
            EXPECT_EQ(CountOf(exported.remarks, "bin.too-deep"), bins > kDeepest ? 1u : 0u) << row;
            EXPECT_EQ(CountOf(exported.remarks, "sequence.too-deep"),
                      sequences > kSequences ? 1u : 0u)
                << row;
            EXPECT_EQ(CountOf(exported.remarks, "sequence.in-itself"),
                      sequences > kSequences ? 0u : 1u)
                << row;
            Document back;
            ObjectHandle read;
            EXPECT_EQ(ParseFCPXML(exported.xmeml, back, read), kReadDone) << row;
            EXPECT_EQ(CountOf(exported.xmeml, "<bin>"), static_cast<std::size_t>(bins)) << row;
        }
    }
}

TEST(Export, NestedSequencesAreWrittenOnceEachAndSideBySide)
{
    constexpr std::size_t kCount = 500;
    const std::string text = Export(CircleOf(kCount, "10160640000")).xmeml;
    std::multiset<std::string> ids;
    EXPECT_LT(CollectIds(ParseElements(text), ids), 50);
    EXPECT_EQ(ids.size(), kCount);
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), kCount);
}

// A sequence of `count` clips of one file, all linked to each other.
std::string LinkedClips(int count)
{
    std::string links;
    std::string items;
    for (int i = 0; i < count; ++i) {
        const std::string id = "ObjectRef=\"" + std::to_string(100000 + i) + "\"";
        const Ticks start = i * 10160640000;
        links += "<TrackItem " + id + "/>";
        items += "<TrackItem is=\"VideoClipTrackItem\" ObjectID=\"" + std::to_string(100000 + i) +
                 "\"><ClipTrackItem><TrackItem><Start>" + std::to_string(start) + "</Start><End>" +
                 std::to_string(start + 10160640000) +
                 "</End></TrackItem><SubClip is=\"SubClip\"><Clip is=\"VideoClip\"><Clip>"
                 "<Source is=\"VideoMediaSource\"><MediaSource><Media ObjectURef=\"media\"/>"
                 "</MediaSource></Source><InPoint>0</InPoint><OutPoint>10160640000</OutPoint>"
                 "</Clip></Clip><MasterClip ObjectURef=\"master\"/></SubClip></ClipTrackItem>"
                 "</TrackItem>";
    }
    return FlatProject(
        "<VelaData Version=\"3\"><Project is=\"Project\"><RootProjectItem is=\"RootProjectItem\" "
        "ObjectUID=\"root\"><ProjectItemContainer><Items>"
        "<Item is=\"ClipProjectItem\" ObjectUID=\"i1\"><MasterClip is=\"MasterClip\" "
        "ObjectUID=\"master\"><Clips><Clip is=\"VideoClip\"><Clip><Source "
        "is=\"VideoMediaSource\"><MediaSource><Media is=\"Media\" ObjectUID=\"media\">"
        "<VideoStream is=\"VideoStream\"><Duration>254016000000000</Duration>"
        "<FrameRate>10160640000</FrameRate><FrameRect>0,0,1920,1080</FrameRect></VideoStream>"
        "<FilePath>/m/a.mov</FilePath></Media></MediaSource></Source></Clip></Clip></Clips>"
        "</MasterClip></Item>"
        "<Item is=\"ClipProjectItem\" ObjectUID=\"i2\"><MasterClip is=\"MasterClip\" "
        "ObjectUID=\"cut\"><Clips><Clip is=\"VideoClip\"><Clip><Source "
        "is=\"VideoSequenceSource\"><SequenceSource><Sequence is=\"Sequence\" "
        "ObjectUID=\"sequence\"><PersistentGroupContainer><LinkContainer><Links>"
        "<Link is=\"Link\"><TrackItemGroup><TrackItems>" +
        links +
        "</TrackItems></TrackItemGroup></Link></Links></LinkContainer></PersistentGroupContainer>"
        "<TrackGroups><TrackGroup><First>228cda18-3625-4d2d-951e-348879e4ed93</First>"
        "<Second is=\"VideoTrackGroup\"><TrackGroup><FrameRate>10160640000</FrameRate><Tracks>"
        "<Track is=\"VideoClipTrack\"><ClipTrack><ClipItems><TrackItems>" +
        items +
        "</TrackItems></ClipItems></ClipTrack></Track></Tracks></TrackGroup></Second></TrackGroup>"
        "</TrackGroups></Sequence></SequenceSource></Source></Clip></Clip></Clips></MasterClip>"
        "</Item></Items></ProjectItemContainer></RootProjectItem></Project></VelaData>");
}

// Each item of a group names all others, so that a large group would grow without limit.
TEST(Export, LargeGroupsAreWrittenWithoutLinks)
{
    constexpr int kLargest = 256;
    for (const int count : {kLargest, kLargest + 1}) {
        const Exported exported = Export(LinkedClips(count));
        const std::size_t links =
            count > kLargest ? 0u : static_cast<std::size_t>(count) * kLargest;
        constexpr std::size_t kOfBin = 1; // of the clip in the bin to itself
        EXPECT_EQ(CountOf(exported.xmeml, "<link>"), links + kOfBin) << count;
        EXPECT_EQ(CountOf(exported.remarks, "link.too-large"), count > kLargest ? 1u : 0u) << count;
    }
}

TEST(Export, RatesThatCannotBe)
{
    const auto faultOf = [](const std::string& project) -> std::string {
        try {
            Export(project);
        } catch (const DocumentFault& fault) {
            return fault.what();
        }
        return "none";
    };
    EXPECT_EQ(faultOf(ClipProject("0", "5292000")), "media <A & B.mov> has a frame length of 0");
    EXPECT_EQ(faultOf(ClipProject("8475667200", "0")),
              "the sound of media <A & B.mov> has a frame length of 0");
    EXPECT_EQ(faultOf(CircleOf(1, "0")), "sequence <Cut> has a frame length of 0");
    EXPECT_EQ(faultOf(CircleOf(1, "9223372036854775807")), "none");
    for (const char* const noRate : {"9223372036854775807", "-1"}) {
        const Element document = ParseElements(Export(ClipProject(noRate, "5292000")).xmeml);
        const Element& clip = document.Child("project").Child("children").Child("clip");
        EXPECT_EQ(clip.Child("in").text, "11") << noRate;
    }
}

TEST(Export, TwoExportsOfAProcessShareNoId)
{
    const std::string project = ClipProject("8475667200", "5292000");
    const auto idOf = [&] {
        const Element document = ParseElements(Export(project).xmeml);
        return std::string(
            document.Child("project").Child("children").Child("clip").Attribute("id"));
    };
    const std::string first = idOf();
    EXPECT_TRUE(first.starts_with("masterclip-")) << first;
    EXPECT_NE(idOf(), first);
}

} // namespace
} // namespace XPJ::RVX

// Numbers, references and passes of the project writer.
#include "gtest/gtest.h"

#include "support/writer_test_support.h"

#include "core/base64.h"
#include "project/classes.h"
#include "tree/blob.h"

#include <map>
#include <set>
#include <stdexcept>

namespace XPJ {
namespace {

// All values of an attribute, in order.
std::vector<std::string> Values(const std::string& text, const std::string& attribute)
{
    std::vector<std::string> values;
    const std::string start = " " + attribute + "=\"";
    for (std::size_t i = text.find(start); i != text.npos; i = text.find(start, i)) {
        i += start.size();
        values.push_back(text.substr(i, text.find('"', i) - i));
    }
    return values;
}

TEST(ProjectWriter, FrameNumbersAndPasses)
{
    Document d;
    const ObjectHandle settings = Make(d, "AudioSettings", {{"FrameRate", "5292000"}});
    const ObjectHandle compile =
        Make(d, "AudioCompileSettings", {{"Interleave", "4"}}, {{"AudioSettings", settings}});
    const ObjectHandle root = Make(d, "RootProjectItem", {{"uid", "root-guid"}, {"ID", "1000000"}});
    const ObjectHandle project =
        Make(d, "Project", {{"NextID", "1000001"}},
             {{"AudioCompileSettings", compile}, {"RootProjectItem", root}});
    const ObjectHandle document = Make(d, "Document", {}, {{"Project", project}});

    EXPECT_EQ(ProjectText(document), R"(<?xml version="1.0" encoding="UTF-8"?>
<VelaData Version="3">
	<Project ObjectRef="3"/>
	<AudioSettings ObjectID="1" ClassID="6baf5521-b132-4634-840e-13cec5bc86a4" Version="7">
		<FrameRate>5292000</FrameRate>
	</AudioSettings>
	<AudioCompileSettings ObjectID="2" ClassID="34b10007-ab6d-49a7-bac5-7b60d919e387" Version="6">
		<Interleave>4</Interleave>
		<AudioSettings ObjectRef="1"/>
	</AudioCompileSettings>
	<Project ObjectID="3" ClassID="62ad66dd-0dcd-42da-a660-6d8fbde94876" Version="26">
		<Node Version="1">
			<Properties Version="1">
				<Project.Metadata.Schema></Project.Metadata.Schema>
			</Properties>
		</Node>
		<NextID>1000001</NextID>
		<AudioCompileSettings ObjectRef="2"/>
		<RootProjectItem ObjectURef="root-guid"/>
	</Project>
	<RootProjectItem ObjectUID="root-guid" ClassID="1c307a89-9318-47d7-a583-bf2553736543" Version="1">
		<ProjectItemContainer Version="1">
			<Items Version="1">
			</Items>
		</ProjectItemContainer>
		<ProjectItem Version="1">
			<Node Version="1">
				<ID>1000000</ID>
			</Node>
			<Name>Root Bin</Name>
		</ProjectItem>
	</RootProjectItem>
</VelaData>
)");
    EXPECT_EQ(ProjectText(document, true), "__Sn2Vl__\n" + ProjectText(document));
}

TEST(ProjectWriter, ProjectWithoutRootItemOrNothingAtAll)
{
    Document d;
    const std::string text =
        ProjectText(Make(d, "Document", {}, {{"Project", Make(d, "Project")}}));
    EXPECT_EQ(CountOf(text, "RootProjectItem"), 0u);
    EXPECT_EQ(CountOf(text, "<Project ObjectRef=\"1\"/>"), 1u);
    EXPECT_EQ(
        ProjectText(Make(d, "Document")),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<VelaData Version=\"3\">\n</VelaData>\n");
}

TEST(ProjectWriter, RequiredGuidTargetMustExist)
{
    Document d;
    const ObjectHandle sources[] = {
        Make(d, "VideoMediaSource"),    Make(d, "AudioMediaSource"), Make(d, "VideoSequenceSource"),
        Make(d, "AudioSequenceSource"), Make(d, "SubClip"),          Make(d, "ClipProjectItem"),
    };
    for (const ObjectHandle source : sources) {
        SCOPED_TRACE(source.GetName().Text());
        try {
            WriteAlone(d, source);
            FAIL() << "nothing thrown";
        } catch (const std::logic_error& error) {
            EXPECT_STREQ(error.what(), "WriteSubObjectURef(): NULL object");
        }
    }
}

TEST(ProjectWriter, GeneratedGuidServesDefinitionAndReferences)
{
    const CountingPlatform platform;
    Document d;
    const ObjectHandle media = Make(d, "Media", {{"Title", "m"}});
    const ObjectHandle inlet =
        Make(d, "AudioTrackInlet", {},
             {{"Source", Make(d, "VideoMediaSource", {}, {{"Media", media}})},
              {"Source", Make(d, "AudioMediaSource", {}, {{"Media", media}})}});
    const std::string text = ProjectText(Make(d, "Document", {}, {{"Inlet", inlet}}));
    const std::string guid = "00000000-0000-0000-0000-000000000001";
    EXPECT_EQ(Values(text, "ObjectURef"), (std::vector<std::string>{guid, guid}));
    EXPECT_EQ(Values(text, "ObjectUID"), (std::vector<std::string>{guid})) << "written once";
    EXPECT_EQ(media.GetProperty(Name("uid")), "") << "the tree stays as it is";
}

TEST(ProjectWriter, CyclesAndSharedNodesAreVisitedOnce)
{
    Document d;
    const ObjectHandle sequence = Make(d, "Sequence", {{"uid", "s"}, {"Name", "loop"}});
    const ObjectHandle source = Make(d, "VideoSequenceSource", {}, {{"Sequence", sequence}});
    const ObjectHandle clip = Make(d, "VideoClip", {}, {{"Source", source}});
    const ObjectHandle master = Make(d, "MasterClip", {{"uid", "m"}}, {{"Clip", clip}});
    const ObjectHandle subClip = Make(d, "SubClip", {}, {{"Clip", clip}, {"MasterClip", master}});
    const ObjectHandle item = Make(d, "VideoClipTrackItem", {}, {{"SubClip", subClip}});
    const ObjectHandle track = Make(d, "VideoClipTrack", {}, {{"TrackItem", item}});
    sequence.AddChild("TrackGroup", Make(d, "VideoTrackGroup", {}, {{"Track", track}}));
    master.AddChild("mclipcandidate", clip);
    master.AddChild("fcpmasterclip", Make(d, "clip", {}, {{"x", Make(d, "Media")}}));

    const std::string text = ProjectText(Make(d, "Document", {}, {{"Sequence", sequence}}));
    EXPECT_EQ(CountOf(text, "<Sequence ObjectUID"), 1u);
    EXPECT_EQ(CountOf(text, "<VideoClip ObjectID"), 1u);
    EXPECT_EQ(CountOf(text, "<Media "), 0u) << "the other document's subtree";
    std::set<std::string> ids;
    for (const std::string& id : Values(text, "ObjectID"))
        EXPECT_TRUE(ids.insert(id).second);
    for (const std::string& id : Values(text, "ObjectRef"))
        EXPECT_TRUE(ids.count(id)) << id;
}

TEST(ProjectWriter, DeepChainsDoNotUseTheStack)
{
    Document d;
    ObjectHandle bin = Make(d, "BinProjectItem", {{"uid", "bottom"}});
    for (int i = 0; i < 200000; ++i)
        bin = Make(d, "BinProjectItem", {{"uid", "b"}}, {{"Item", bin}});
    const std::string text = ProjectText(Make(d, "Document", {}, {{"Bin", bin}}));
    EXPECT_EQ(CountOf(text, "</BinProjectItem>"), 200001u);
    EXPECT_LT(text.find("ObjectUID=\"bottom\""), text.find("ObjectUID=\"b\"")) << "deepest first";
}

// Each class with every property and two children for each reference: the text must be balanced,
// hold every value, and mention no object that it does not define.
TEST(ProjectWriter, EveryClassDefinesWhatItMentions)
{
    const auto fill = [](Document& d, ObjectHandle node, std::span<const BodyRow> rows,
                         const auto& self) -> void {
        for (const BodyRow& row : rows) {
            self(d, node, row.rows, self);
            const auto child = [&](Name name) { return d.NewObject(name); };
            switch (row.kind) {
            case RowKind::Value:
            case RowKind::Blob:
            case RowKind::SharedBlob:
                node.SetProperty(row.kind == RowKind::Value ? row.key : row.tag, "v.v");
                break;
            case RowKind::Reference:
            case RowKind::ReferenceList:
            case RowKind::Pairs: {
                ObjectHandle owner = node;
                if (!row.via.IsEmpty())
                    node.AddChild(row.via, owner = child("LinkContainer"));
                owner.AddChild(row.tag, child("Dependency"));
                owner.AddChild(row.tag, child("Dependency"));
                break;
            }
            case RowKind::GuidReference:
            case RowKind::OptionalGuidReference:
            case RowKind::GuidList:
                node.AddChild(row.tag, child("Media"));
                node.AddChild(row.tag, child("Media"));
                break;
            default:
                break;
            }
        }
    };
    const auto values = [](std::span<const BodyRow> rows, const auto& self) -> std::size_t {
        std::size_t count = 0;
        for (const BodyRow& row : rows)
            count +=
                self(row.rows, self) + (row.kind == RowKind::Value || row.kind == RowKind::Blob ||
                                        row.kind == RowKind::SharedBlob);
        return count;
    };

    for (const ProjectClass& row : ProjectClasses()) {
        if (row.identity == Identity::None)
            continue;
        SCOPED_TRACE(row.name);
        Document d;
        const ObjectHandle node = d.NewObject(Name::OfStatic(row.name));
        node.SetProperty("uid", "own");
        node.SetProperty("classid", "class");
        fill(d, node, row.body, fill);
        const ObjectHandle holder = Make(d, "AudioTrackInlet", {}, {{"Source", node}});
        const std::string text = ProjectText(Make(d, "Document", {}, {{"Holder", holder}}));
        const std::string own = ObjectText(text, std::string(row.name));

        EXPECT_EQ(CountOf(own, ">v.v<"), values(row.body, values));
        EXPECT_EQ(CountOf(text, "\t</"), CountOf(text, "\">\n") - 1) << "blocks that open close";
        const std::vector<std::string> ids = Values(text, "ObjectID");
        for (const std::string& id : Values(text, "ObjectRef"))
            EXPECT_EQ(std::count(ids.begin(), ids.end(), id), 1) << id;
        const std::vector<std::string> uids = Values(text, "ObjectUID");
        for (const std::string& uid : Values(text, "ObjectURef"))
            EXPECT_EQ(std::count(uids.begin(), uids.end(), uid), 1) << uid;
    }
}

// So many that several threads print them.
TEST(ProjectWriter, ManyObjectsKeepTheirOrder)
{
    constexpr std::size_t kMarkers = 5000;
    Document d;
    const ObjectHandle inlet = Make(d, "AudioTrackInlet");
    for (std::size_t i = 0; i < kMarkers; ++i)
        inlet.AddChild("Source",
                       Make(d, "Marker", {{"StartTime", std::to_string(i)}, {"Color", "1"}}));
    const ObjectHandle document = Make(d, "Document", {}, {{"Inlet", inlet}});
    const std::string text = ProjectText(document);

    const std::vector<std::string> ids = Values(text, "ObjectID");
    ASSERT_EQ(ids.size(), kMarkers);
    std::set<std::string> guids;
    std::size_t at = 0;
    for (std::size_t i = 0; i < kMarkers; ++i) {
        ASSERT_EQ(ids[i], std::to_string(i + 1));
        constexpr std::string_view kGuidKey = "keywordExtHULv1_";
        at = text.find(kGuidKey, at) + kGuidKey.size();
        guids.insert(text.substr(at, text.find('"', at) - at));
        const std::size_t start = text.find(R"("mStartTime":{"ticks":)", at);
        const std::string expected = R"("mStartTime":{"ticks":)" + std::to_string(i) + "}";
        ASSERT_EQ(text.substr(start, expected.size()), expected);
        at = start;
    }
    EXPECT_EQ(guids.size(), kMarkers);

    // A fault in one block, while others are printed.
    for (std::size_t i = 0; i < kMarkers; ++i)
        inlet.AddChild("Source", Make(d, i == kMarkers / 2 ? Name("SubClip") : Name("Dependency")));
    EXPECT_THROW(ProjectText(document), std::logic_error);
}

TEST(ProjectWriter, CancelsAtEachCheck)
{
    Document d;
    const ObjectHandle inlet = Make(d, "AudioTrackInlet");
    for (int i = 0; i < 3000; ++i)
        inlet.AddChild("Source", Make(d, "Dependency"));
    const ObjectHandle project =
        Make(d, "Document", {}, {{"Inlet", inlet}, {"Project", Make(d, "Project")}});

    const auto job = [&project](Progress& progress) {
        std::ostringstream output;
        return WriteProjectDocument(project, progress, output, false);
    };
    const TestProgress whole = ExpectStopsAtEachCheck(job, kWriteDone, kWriteCancelled);
    EXPECT_EQ(whole.totals, (std::vector<unsigned>{3, 3001}));
    EXPECT_EQ(whole.advanced, 3u + 3001u);
}

TEST(ProjectWriter, EmptyIdIsPrintedAndWritten)
{
    Document d;
    testing::internal::CaptureStdout();
    const std::string text = WriteAlone(d, Make(d, "ChildClipIDSerializer", {{"ID", ""}}));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              " WARNING: XML tag had an ID attribute but no value (this will likely cause the "
              "project to fail to load)\n"
              " Printing child names of ChildClipIDSerializer\n"
              " Printing attributes of ChildClipIDSerializer\n"
              "  * ID: \n");
    EXPECT_EQ(CountOf(text, "\t\t<ID></ID>\n"), 1u);
}

TEST(ProjectWriter, LargeValuesCrossBlocks)
{
    Document d;
    const std::string big(300000, 'x');
    const ObjectHandle inlet = Make(d, "AudioTrackInlet");
    for (const std::size_t size :
         {big.size(), std::size_t{65536}, std::size_t{65535}, std::size_t{1}})
        inlet.AddChild("Source", Make(d, "Dependency", {{"Tag", big.substr(0, size)}}));
    const std::string text = ProjectText(Make(d, "Document", {}, {{"Inlet", inlet}}));
    EXPECT_EQ(CountOf(text, "x"), 300000u + 65536 + 65535 + 1 + 1); // one in "<?xml"
    EXPECT_EQ(text.substr(text.size() - 12), "</VelaData>\n");
}

TEST(EncodedBlob, DataAndChecksum)
{
    struct Row {
        std::string bytes, data, checksum;
    };
    std::string counting;
    for (char c = 0; c < 16; ++c)
        counting += c;
    const Row rows[] = {
        {std::string(3, '\0'), "AAAA", "4287466893"},
        {std::string("\xff\0\0\xff\x01\0\0\0", 8), "/wAA/wEAAAA=", "462261645"},
        {counting, EncodeBase64(counting), "1989261662"},
    };
    for (const Row& row : rows) {
        Document d;
        const ObjectHandle node = d.NewObject("Media");
        SetEncodedBlob(node, "ImporterPrefs", "ImporterPrefsChecksum", row.bytes);
        EXPECT_EQ(node.GetProperty(Name("ImporterPrefs")), row.data);
        EXPECT_EQ(node.GetProperty(Name("ImporterPrefsChecksum")), row.checksum);
    }
    Document d;
    const ObjectHandle node = d.NewObject("Media");
    SetEncodedBlob(node, "ImporterPrefs", "ImporterPrefsChecksum", "");
    EXPECT_FALSE(node.HasProperties());
}

} // namespace
} // namespace XPJ

// The written form of the classes whose body is more than a list of properties.
#include "gtest/gtest.h"

#include "support/writer_test_support.h"

#include "tree/blob.h"

namespace XPJ {
namespace {

TEST(ProjectObjects, OneAudioLayout)
{
    struct Row {
        const char* layout; // "" for none
        const char* type;
        const char* count;
        const char* list;
    };
    constexpr const char* kMono = R"({"channellabel":0})";
    constexpr const char* kStereo = R"({"channellabel":100},{"channellabel":101})";
    const Row rows[] = {
        {"as stated", "1", "2", "as stated"},
        {"", "0", "1", kMono},
        {"", "0", "", kMono},
        {"", "1", "2", kStereo},
        {"", "2", "6",
         R"({"channellabel":100},{"channellabel":101},{"channellabel":104},)"
         R"({"channellabel":105},{"channellabel":102},{"channellabel":103})"},
        {"", "3", "3", R"({"channellabel":0},{"channellabel":0},{"channellabel":0})"},
        {"", "3", "2", kStereo},
        {"", "3", "-5", kMono},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.list);
        Document d;
        const ObjectHandle clip =
            Make(d, "AudioClip", {{"ChannelType", row.type}, {"NumChannels", row.count}});
        const bool stated = *row.layout != 0;
        if (stated)
            clip.SetProperty("AudioChannelLayout", row.layout);
        const std::string list =
            stated ? std::string(row.list)
                   : "{\"SerializerWrappedObject\":[" + std::string(row.list) + "]}";
        const std::string text = WriteAlone(d, clip);
        EXPECT_NE(text.find("\t\t<AudioChannelLayout>" + list + "</AudioChannelLayout>\n\t</"),
                  text.npos)
            << text;
        EXPECT_EQ(text.find("<ChannelType>"), text.npos);
        EXPECT_EQ(text.find("<AudioChannelLayout>"), text.rfind("<AudioChannelLayout>"));
    }
}

TEST(ProjectObjects, Markers)
{
    const CountingPlatform platform;
    Document d;
    const ObjectHandle marker = Make(d, "Marker",
                                     {{"Comment", "line\n\"two\" \\ &amp; &quot;three&quot; \x01"},
                                      {"Name", "caf\xc3\xa9 &lt;1&gt;"},
                                      {"StartTime", "254016000000"},
                                      {"Duration", "5"},
                                      {"Color", "4281740498"},
                                      {"Type", ""}});
    const ObjectHandle markers =
        Make(d, "Markers", {}, {{"Marker", marker}, {"Marker", Make(d, "Marker")}});
    EXPECT_EQ(
        WriteAlone(d, markers),
        R"(	<Markers ObjectID="3" ClassID="bee50706-b524-416c-9f03-b596ce5f6866" Version="3">
		<Markers Version="1">
			<Marker Version="1" Index="0">
				<First>254016000000</First>
				<Second ObjectRef="1"/>
			</Marker>
			<Marker Version="1" Index="1">
				<First>0</First>
				<Second ObjectRef="2"/>
			</Marker>
			<ByGUID>byGUID</ByGUID>
			<LastMetadataState>00000000-0000-0000-0000-000000000000</LastMetadataState>
		</Markers>
	</Markers>
)");
    const std::string start = "\t\t<HULMarker>{\"HULMarker\":{";
    const std::string end = "}}</HULMarker>\r\n\t</Marker>\n";
    const std::string head =
        "ClassID=\"a45508e0-3ff7-4d04-90a7-2e0dfff4c910\" Version=\"3\">\n" + start;
    const std::string guid = "00000000-0000-0000-0000-000000000002"; // the first text took number 1
    EXPECT_EQ(WriteAlone(d, marker),
              "\t<Marker ObjectID=\"1\" " + head +
                  R"("mComment":"line\n\"two\" \\ &amp; \"three\" \u0001",)"
                  R"("mCuePointList":[{"mKey":"marker_guid","mValue":")" +
                  guid + R"("},{"mKey":"keywordExtHULv1_)" + guid +
                  R"(","mValue":"{\"color\":4281740498}"}],"mDuration":{"ticks":5},)"
                  "\"mName\":\"caf\xc3\xa9 &lt;1&gt;\","
                  R"("mStartTime":{"ticks":254016000000},"mType":"Comment")" +
                  end);

    constexpr std::string_view kTypes[][2] = {
        {"Sequence", "Chapter"}, {"ML.SequenceMarker.Chapter", "Chapter"}, {"WebLink", "WebLink"}};
    for (const auto& [type, printed] : kTypes) {
        std::string expected = "\t<Marker ObjectID=\"1\" " + head;
        expected += R"("mDuration":{"ticks":0},"mStartTime":{"ticks":0},"mType":")";
        expected.append(printed).append("\"").append(end);
        EXPECT_EQ(WriteAlone(d, Make(d, "Marker", {{"Type", type}})), expected);
    }
}

TEST(ProjectObjects, Blobs)
{
    Document d;
    const ObjectHandle media = Make(d, "Media", {{"uid", "g"}, {"Title", "t"}});
    EXPECT_EQ(WriteAlone(d, media).find("ImporterPrefs"), std::string::npos);
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", std::string(3, '\0'));
    EXPECT_EQ(
        WriteAlone(d, media),
        R"(	<Media ObjectUID="g" ClassID="7a5c103e-f3ac-4391-b6b4-7cc3d2f9a7ff" Version="21">
		<Title>t</Title>
		<IsProxy>false</IsProxy>
		<ImporterPrefs Encoding="base64" Checksum="4287466893">AAAA</ImporterPrefs>
	</Media>
)");

    const ObjectHandle parameter = Make(d, "ArbVideoComponentParam", {{"Name", ""}});
    const std::string head =
        R"(	<ArbVideoComponentParam ObjectID="1" ClassID="313e54d4-6903-49ad-b0bf-8262cdd10f4e" Version="2">
		<Name></Name>
)";
    EXPECT_EQ(WriteAlone(d, parameter),
              head +
                  R"(		<StartKeyframeValue Encoding="base64" Checksum=""/>
	</ArbVideoComponentParam>
)");
    SetEncodedBlob(parameter, "StartKeyframeValue", "StartKeyframeValueChecksum",
                   std::string("\xff\0\0\xff\x01\0\0\0", 8));
    EXPECT_EQ(
        WriteAlone(d, parameter),
        head +
            R"(		<StartKeyframeValue Encoding="base64" Checksum="462261645">/wAA/wEAAAA=</StartKeyframeValue>
	</ArbVideoComponentParam>
)");
}

} // namespace
} // namespace XPJ

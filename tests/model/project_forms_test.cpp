// The written form of the classes whose body is more than a list of properties.
#include "gtest/gtest.h"

#include "writer_test_support.h"

namespace XPJ {
namespace {

TEST(ProjectForms, OneAudioLayout)
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

TEST(ProjectForms, Markers)
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

TEST(ProjectForms, MasterClipMarksOnlyMergeComponents)
{
    Document d;
    const ObjectHandle clip = Make(d, "VideoClip");
    const ObjectHandle child = Make(d, "ChildClipIDSerializer", {{"ID", "1"}});
    const ObjectHandle master = Make(d, "MasterClip",
                                     {{"uid", "master-guid"},
                                      {"Name", "text"},
                                      {"Source.Monitor.Multicam.Enabled", "true"},
                                      {"FCPMergedMasterKind", "V1A2"}},
                                     {{"Clip", clip},
                                      {"Clip", clip},
                                      {"ChildClipID", child},
                                      {"LoggingInfo", Make(d, "ClipLoggingInfo")}});
    const std::string before =
        R"(	<MasterClip ObjectUID="master-guid" ClassID="fb11c33a-b0a9-4465-aa94-b6d5db2628cf" Version="8">
		<Node Version="1">
			<Properties Version="1">
)";
    const std::string after =
        R"(				<Source.Monitor.Multicam.Enabled>true</Source.Monitor.Multicam.Enabled>
				<FCPMergedMasterKind>V1A2</FCPMergedMasterKind>
			</Properties>
		</Node>
		<LoggingInfo ObjectRef="1"/>
		<Clips Version="1">
			<Clip Index="0" ObjectRef="2"/>
			<Clip Index="1" ObjectRef="2"/>
		</Clips>
		<ChildClipIDs Version="1">
			<ChildClipID Index="0" ObjectRef="3"/>
		</ChildClipIDs>
		<Name>text</Name>
		<AudioPreset>00000000-0000-0000-0000-000000000000</AudioPreset>
		<DefMappingID>00000000-0000-0000-0000-000000000000</DefMappingID>
		<IsAdjustmentLayer>false</IsAdjustmentLayer>
	</MasterClip>
)";
    EXPECT_EQ(WriteAlone(d, master), before + after);
    master.SetProperty("MZ.MergeClip.ParentGUID", "parent");
    EXPECT_EQ(
        WriteAlone(d, master),
        before +
            R"(				<MZ.MergeClip.ParentGUID>parent</MZ.MergeClip.ParentGUID>
				<MZ.MergeClipUtils.IsComponentMasterClip>true</MZ.MergeClipUtils.IsComponentMasterClip>
)" + after);
}

TEST(ProjectForms, Blobs)
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

TEST(ProjectForms, Panners)
{
    Document d;
    const ObjectHandle parameter = Make(d, "AudioComponentParam", {{"classid", "own-class"}});
    const ObjectHandle panner =
        Make(d, "MonoTo16ChannelPanProcessor",
             {{"ID", "1"}, {"FrameRate", "5292000"}, {"Matrix", "m"}}, {{"Param", parameter}});
    std::string entries = "{\"channellabel\": 0}";
    for (int i = 1; i < 18; ++i)
        entries += ", {\"channellabel\": 0}";
    EXPECT_EQ(
        WriteAlone(d, panner),
        R"(	<MonoTo16ChannelPanProcessor ObjectID="2" ClassID="8c9778ad-af4e-4e98-99fe-542f4eda2dac" Version="2">
		<DirectPanProcessor Version="2">
			<PanProcessor Version="3">
				<AudioComponent Version="3">
					<Component Version="3">
						<Intrinsic>false</Intrinsic>
						<Params Version="1">
							<Param Index="0" ObjectRef="1"/>
						</Params>
						<DisplayName></DisplayName>
						<Bypass>false</Bypass>
						<ID>1</ID>
					</Component>
					<AudioComponentType>0</AudioComponentType>
					<FrameRate>5292000</FrameRate>
					<AudioChannelLayout>{"SerializerWrappedObject": [{"channellabel": 0}]}</AudioChannelLayout>
					<ChannelType>0</ChannelType>
				</AudioComponent>
				<OutputAudioChannelLayout>{"SerializerWrappedObject": [)" +
            entries + R"(]}</OutputAudioChannelLayout>
			</PanProcessor>
			<Matrix>m</Matrix>
		</DirectPanProcessor>
	</MonoTo16ChannelPanProcessor>
)");
    EXPECT_EQ(WriteAlone(d, parameter),
              "\t<AudioComponentParam ObjectID=\"1\" ClassID=\"own-class\" Version=\"9\">\n"
              "\t</AudioComponentParam>\n");
    EXPECT_EQ(WriteAlone(d, Make(d, "S51To16ChannelPanProcessor", {{"ID", "1"}})),
              "\t<S51To16ChannelPanProcessor ObjectID=\"1\" "
              "ClassID=\"F135F697-20E3-4a36-8EE1-355DEB9EA1AE\" Version=\"1\">\n"
              "\t</S51To16ChannelPanProcessor>\n");
}

} // namespace
} // namespace XPJ

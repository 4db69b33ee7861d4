// The written form of the classes whose body is more than a list of properties.
#include "gtest/gtest.h"

#include "support/writer_test_support.h"

#include "tree/blob.h"

namespace XPJ {
namespace {

TEST(ProjectForms, VideoClip)
{
    Document d;
    const ObjectHandle source = Make(d, "VideoMediaSource", {{"OriginalDuration", "9"}},
                                     {{"Media", Make(d, "Media", {{"uid", "media-guid"}})}});
    const ObjectHandle remapping =
        Make(d, "TimeRemapping", {}, {{"Keyframes", Make(d, "TimeComponentParam")}});
    const ObjectHandle clip =
        Make(d, "VideoClip",
             {{"SelectedTrackIndex", "1"},
              {"hfl.clip.label.name", "BE.Prefs.LabelColors.1"},
              {"BE.MasterClip.SelectionInstance", "g"},
              {"ClipID", "clip-guid"},
              {"FrameRate", "8475667200"},
              {"InPoint", "0"},
              {"OutPoint", "254016000000"},
              {"PlaybackSpeed", "0.5"},
              {"PlayBackwards", "true"},
              {"InUse", "false"},
              {"IsMulticam", "true"},
              {"ScaleToFrameSize", "false"},
              {"FrameHoldStart", "-101606400000000000"},
              {"TimeInterpolationType", "1"},
              {"mediatype", "a working value"}},
             {{"Markers", Make(d, "Markers")}, {"Source", source}, {"TimeRemapping", remapping}});
    EXPECT_EQ(
        WriteAlone(d, clip),
        R"(	<VideoClip ObjectID="5" ClassID="9308dbef-2440-4acb-9ab2-953b9a4e82ec" Version="11">
		<Clip Version="18">
			<Node Version="1">
				<Properties Version="1">
					<hfl.clip.label.name>BE.Prefs.LabelColors.1</hfl.clip.label.name>
					<BE.MasterClip.SelectionInstance>g</BE.MasterClip.SelectionInstance>
				</Properties>
			</Node>
			<MarkerOwner Version="1">
				<Markers ObjectRef="2"/>
			</MarkerOwner>
			<Source ObjectRef="3"/>
			<TimeRemapping ObjectRef="4"/>
			<ClipID>clip-guid</ClipID>
			<FrameRate>8475667200</FrameRate>
			<InPoint>0</InPoint>
			<OutPoint>254016000000</OutPoint>
			<PlaybackSpeed>0.5</PlaybackSpeed>
			<PlayBackwards>true</PlayBackwards>
			<InUse>false</InUse>
			<IsMulticam>true</IsMulticam>
			<SelectedTrackIndex>1</SelectedTrackIndex>
		</Clip>
		<ScaleToFrameSize>false</ScaleToFrameSize>
		<FrameHoldStart>-101606400000000000</FrameHoldStart>
		<TimeInterpolationType>1</TimeInterpolationType>
	</VideoClip>
)");
}

TEST(ProjectForms, AudioClip)
{
    Document d;
    const ObjectHandle content = Make(d, "SecondaryContent", {{"ChannelIndex", "0"}});
    const ObjectHandle clip =
        Make(d, "AudioClip", {{"Gain", "1.0"}, {"SecondaryIndex", "0"}},
             {{"SecondaryContentItem", content}, {"SecondaryContentItem", content}});
    EXPECT_EQ(
        WriteAlone(d, clip),
        R"(	<AudioClip ObjectID="2" ClassID="b8830d03-de02-41ee-84ec-fe566dc70cd9" Version="8">
		<Clip Version="18">
			<Node Version="1">
				<Properties Version="1">
				</Properties>
			</Node>
			<MarkerOwner Version="1">
			</MarkerOwner>
		</Clip>
		<SecondaryContents Version="1">
			<SecondaryContentItem Index="0" ObjectRef="1"/>
			<SecondaryContentItem Index="1" ObjectRef="1"/>
		</SecondaryContents>
		<Gain>1.0</Gain>
		<SecondaryIndex>0</SecondaryIndex>
		<AudioChannelLayout>{"SerializerWrappedObject":[{"channellabel":0}]}</AudioChannelLayout>
	</AudioClip>
)");
}

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

TEST(ProjectForms, Sequence)
{
    Document d;
    const ObjectHandle item = Make(d, "VideoClipTrackItem");
    const ObjectHandle link = Make(d, "Link", {}, {{"TrackItem", item}, {"TrackItem", item}});
    const ObjectHandle sequence =
        Make(d, "Sequence",
             {{"uid", "sequence-guid"},
              {"MZ.ZeroPoint", "0"},
              {"MZ.Sequence.VideoTimeDisplayFormat", "102"},
              {"BE.Sequence.IsMergedClip", "true"},
              {"Name", "text"},
              {"ID", "1"}},
             {{"TrackGroup", Make(d, "VideoTrackGroup", {{"mediatype", "v"}})},
              {"TrackGroup", Make(d, "AudioTrackGroup", {{"mediatype", "a"}})},
              {"Markers", Make(d, "Markers")},
              {"DVDMarkers", Make(d, "DVDMarkers")},
              {"PersistentGroupContainer", Make(d, "LinkContainer", {}, {{"Link", link}})}});
    const std::string text = ProjectText(Make(d, "Document", {}, {{"Sequence", sequence}}));
    EXPECT_EQ(
        ObjectText(text, "Sequence"),
        R"(	<Sequence ObjectUID="sequence-guid" ClassID="6a15d903-8739-11d5-af2d-9b7855ad8974" Version="11">
		<Node Version="1">
			<Properties Version="1">
				<MZ.Sequence.VideoTimeDisplayFormat>102</MZ.Sequence.VideoTimeDisplayFormat>
				<MZ.ZeroPoint>0</MZ.ZeroPoint>
				<BE.Sequence.IsMergedClip>true</BE.Sequence.IsMergedClip>
			</Properties>
		</Node>
		<MarkerOwner Version="1">
			<Markers ObjectRef="3"/>
		</MarkerOwner>
		<DVDMarkerOwner Version="1">
			<DVDMarkers ObjectRef="4"/>
		</DVDMarkerOwner>
		<PersistentGroupContainer Version="1">
			<LinkContainer Version="1">
				<Links Version="1">
					<Link Index="0" ObjectRef="2"/>
				</Links>
			</LinkContainer>
		</PersistentGroupContainer>
		<TrackGroups Version="1">
			<TrackGroup Version="1" Index="0">
				<First>v</First>
				<Second ObjectRef="5"/>
			</TrackGroup>
			<TrackGroup Version="1" Index="1">
				<First>a</First>
				<Second ObjectRef="6"/>
			</TrackGroup>
		</TrackGroups>
		<ID>1</ID>
		<Name>text</Name>
	</Sequence>
)");
    constexpr std::string_view kLink =
        R"(	<Link ObjectID="2" ClassID="149d4ea5-a7d4-4b34-9bb7-16d783904bf2" Version="1">
		<TrackItemGroup Version="1">
			<TrackItems Version="1">
				<TrackItem Index="0" ObjectRef="1"/>
				<TrackItem Index="1" ObjectRef="1"/>
			</TrackItems>
		</TrackItemGroup>
	</Link>
)";
    EXPECT_EQ(ObjectText(text, "Link"), kLink);
}

TEST(ProjectForms, AudioTrack)
{
    Document d;
    const ObjectHandle track = Make(d, "AudioClipTrack",
                                    {{"Index", "0"},
                                     {"ID", "2"},
                                     {"AudioTrackID", "track-guid"},
                                     {"IsLocked", "false"},
                                     {"IsMuted", "false"},
                                     {"TL.SQTrackShy", "0"},
                                     {"Assign", "1"},
                                     {"ChannelType", "1"},
                                     {"FrameRate", "5292000"},
                                     {"NextPannerID", "4294967279"}},
                                    {{"TransitionTrackItem", Make(d, "AudioTransitionTrackItem")},
                                     {"TrackItem", Make(d, "AudioClipTrackItem")},
                                     {"Components", Make(d, "AudioComponentChain")},
                                     {"Panner", Make(d, "DefaultPanProcessor")}});
    const std::string text = WriteAlone(d, track);
    EXPECT_EQ(
        text,
        R"(	<AudioClipTrack ObjectID="5" ClassID="097f6203-99ae-11d5-84f2-8cf14bde7040" Version="6">
		<ClipTrack Version="2">
			<Track Version="3">
				<Node Version="1">
					<Properties Version="1">
						<TL.SQTrackShy>0</TL.SQTrackShy>
						<MZ.TrackTargeted>1</MZ.TrackTargeted>
					</Properties>
				</Node>
				<MediaType>80b8e3d5-6dca-4195-aefb-cb5f407ab009</MediaType>
				<Index>0</Index>
				<ID>2</ID>
				<IsLocked>false</IsLocked>
				<IsSyncLocked>true</IsSyncLocked>
				<IsMuted>false</IsMuted>
			</Track>
			<ClipItems Version="3">
				<TrackItems Version="1">
					<TrackItem Index="0" ObjectRef="1"/>
				</TrackItems>
			</ClipItems>
			<TransitionItems Version="3">
				<TransitionTrackItem Index="0" ObjectRef="2"/>
			</TransitionItems>
		</ClipTrack>
		<AudioTrack Version="11">
			<ComponentOwner Version="1">
				<Components ObjectRef="3"/>
			</ComponentOwner>
			<Panner ObjectRef="4"/>
			<SubType>1</SubType>
			<AutomationMode>1</AutomationMode>
			<Assign>1</Assign>
			<ChannelType>1</ChannelType>
			<FrameRate>5292000</FrameRate>
			<NextPannerID>4294967279</NextPannerID>
			<Solo>0</Solo>
			<MutedBySolo>0</MutedBySolo>
			<ID>track-guid</ID>
		</AudioTrack>
		<RecordChannel>0</RecordChannel>
	</AudioClipTrack>
)");
    track.SetProperty("MZ.TrackTargeted", "0");
    const std::string own = WriteAlone(d, track);
    EXPECT_NE(own.find("<MZ.TrackTargeted>0</"), own.npos);
    EXPECT_EQ(own.find("<MZ.TrackTargeted>1</"), own.npos);
}

TEST(ProjectForms, AudioMixTrack)
{
    Document d;
    const ObjectHandle track =
        Make(d, "AudioMixTrack", {{"Index", "1"}, {"ID", "1"}, {"AudioTrackID", "g"}},
             {{"Inlet", Make(d, "AudioTrackInlet")}});
    EXPECT_EQ(
        WriteAlone(d, track),
        R"(	<AudioMixTrack ObjectID="2" ClassID="4b1d8400-e89e-11d5-abc4-a1a13b1e80a0" Version="3">
		<AudioTrack Version="11">
			<ComponentOwner Version="1">
			</ComponentOwner>
			<SubType>3</SubType>
			<AutomationMode>1</AutomationMode>
			<Assign>0</Assign>
			<Solo>0</Solo>
			<MutedBySolo>0</MutedBySolo>
			<ID>g</ID>
		</AudioTrack>
		<Track Version="3">
			<MediaType>80b8e3d5-6dca-4195-aefb-cb5f407ab009</MediaType>
			<Index>1</Index>
			<ID>1</ID>
			<IsLocked>false</IsLocked>
			<IsSyncLocked>true</IsSyncLocked>
			<IsMuted>false</IsMuted>
		</Track>
		<Inlet ObjectRef="1"/>
	</AudioMixTrack>
)");
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

TEST(ProjectForms, ProjectItems)
{
    Document d;
    const ObjectHandle item = Make(
        d, "ClipProjectItem",
        {{"uid", "item"}, {"Comment", "note"}, {"Name", "n"}, {"Column.PropertyBool.Good", "true"}},
        {{"MasterClip", Make(d, "MasterClip", {{"uid", "master"}})}});
    const ObjectHandle report = Make(d, "FileProjectItem", {{"uid", "report"}, {"FullPath", "/r"}});
    const ObjectHandle bin = Make(d, "BinProjectItem", {{"uid", "bin"}},
                                  {{"ProjectItem", item}, {"Other", item}, {"Item", report}});
    EXPECT_EQ(
        WriteAlone(d, bin),
        R"(	<BinProjectItem ObjectUID="bin" ClassID="dbfd6653-24da-480e-a35e-ba45e9504e4b" Version="1">
		<ProjectItemContainer Version="1">
			<Items Version="1">
				<Item Index="0" ObjectURef="item" />
				<Item Index="1" ObjectURef="report" />
			</Items>
		</ProjectItemContainer>
		<ProjectItem Version="1">
			<Node Version="1">
				<Properties Version="1">
				</Properties>
			</Node>
		</ProjectItem>
	</BinProjectItem>
)");
    EXPECT_EQ(
        WriteAlone(d, item),
        R"(	<ClipProjectItem ObjectUID="item" ClassID="cb4e0ed7-aca1-4171-8525-e3658dec06dd" Version="1">
		<MasterClip ObjectURef="master"/>
		<ProjectItem Version="1">
			<Node Version="1">
				<Properties Version="1">
					<Column.PropertyText.Comment>note</Column.PropertyText.Comment>
					<Column.PropertyBool.Good>true</Column.PropertyBool.Good>
				</Properties>
			</Node>
			<Name>n</Name>
		</ProjectItem>
	</ClipProjectItem>
)");
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

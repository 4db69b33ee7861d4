#include "project/classes.h"

#include "core/host_properties.h"
#include "tree/name_index.h"

#include <algorithm>

namespace XPJ {

namespace {

using namespace ClassRows;

// Why rows are not used in both directions.

constexpr FieldUse kIdentity = WriteOnly("an identity inside the host");
constexpr FieldUse kCounter = WriteOnly("a counter of the host");
constexpr FieldUse kSettings = WriteOnly("settings of the host, which no other document has");
constexpr FieldUse kForHost = WriteOnly("what the import states for the host");
constexpr FieldUse kPresentation = WriteOnly("how the host presents it");
constexpr FieldUse kNoCounterpart = WriteOnly("no counterpart in xmeml");
constexpr FieldUse kLeadsNowhere = WriteOnly("leads to nothing that is translated");
constexpr FieldUse kOfTrack = WriteOnly("the track states it");
constexpr FieldUse kOfGroup = WriteOnly("the group of tracks states it");
constexpr FieldUse kOfPanner = WriteOnly("the panner states it");
constexpr FieldUse kOfComponents = WriteOnly("the components state it");
constexpr FieldUse kOfMatchName = WriteOnly("the match name identifies the filter");
constexpr FieldUse kOfMedia = WriteOnly("the media states times and name");
constexpr FieldUse kOfClip = WriteOnly("a nested sequence plays from in to out point of the clip");
constexpr FieldUse kOfKeyframes = WriteOnly("the keyframes state the speed");
constexpr FieldUse kOfStream = WriteOnly("the stream states it");
constexpr FieldUse kAtItems = WriteOnly("transitions are found at their items");
constexpr FieldUse kOneMaster = WriteOnly("there is one master track");
constexpr FieldUse kOneMasterClip = WriteOnly("the first master clip is enough");
constexpr FieldUse kByOrder = Skipped("the order of the tracks states it");
constexpr FieldUse kOrder = ForOthers("the order of the tracks states it");
constexpr FieldUse kSoundReel = ForOthers("a clip is written with the reel of its video");
constexpr FieldUse kChannelTypes = ForOthers("the types of the track and of its outputs state it");
constexpr FieldUse kByClass = Skipped("the class of the panner states it");
constexpr FieldUse kInRecord = Skipped("the record of the marker states it");
constexpr FieldUse kNeutral = {}; // written at its neutral value; another one is a loss
constexpr FieldUse kAssigned = ReadOnly("written panners have one assignment, the first");

constexpr Name kAssignedChannels[] = {
    "AssignedChannel0",  "AssignedChannel1",  "AssignedChannel2",  "AssignedChannel3",
    "AssignedChannel4",  "AssignedChannel5",  "AssignedChannel6",  "AssignedChannel7",
    "AssignedChannel8",  "AssignedChannel9",  "AssignedChannel10", "AssignedChannel11",
    "AssignedChannel12", "AssignedChannel13", "AssignedChannel14", "AssignedChannel15",
    "AssignedChannel16", "AssignedChannel17", "AssignedChannel18", "AssignedChannel19",
    "AssignedChannel20", "AssignedChannel21", "AssignedChannel22", "AssignedChannel23",
};

std::span<const Name> AssignedChannelList()
{
    return kAssignedChannels;
}

constexpr std::string_view kVideoMedia = "228cda18-3625-4d2d-951e-348879e4ed93";
constexpr std::string_view kAudioMedia = "80b8e3d5-6dca-4195-aefb-cb5f407ab009";
constexpr std::string_view kZeroGuidText = "00000000-0000-0000-0000-000000000000";

// Channel layouts: those of the default panner without blanks, the others spaced.
constexpr std::string_view kMono = R"({"SerializerWrappedObject":[{"channellabel":0}]})";
constexpr std::string_view kMonoSpaced = R"({"SerializerWrappedObject": [{"channellabel": 0}]})";
constexpr std::string_view kStereoSpaced =
    R"({"SerializerWrappedObject": [{"channellabel": 100}, {"channellabel": 101}]})";
constexpr std::string_view kSurroundSpaced =
    R"({"SerializerWrappedObject": [{"channellabel": 100}, {"channellabel": 101}, )"
    R"({"channellabel": 104}, {"channellabel": 105}, {"channellabel": 102}, )"
    R"({"channellabel": 103}]})";
constexpr std::string_view kSixteenMono =
    R"({"SerializerWrappedObject": [{"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}]})";
// Eighteen entries, although the panner has sixteen channels: part of the format.
constexpr std::string_view kEighteenMono =
    R"({"SerializerWrappedObject": [{"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, )"
    R"({"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}, {"channellabel": 0}]})";

// clang-format off

// Parts that several classes share.

constexpr BodyRow kClipPart[] = {
    Part("Clip", 18),
        Wrapper("Node", 1),
            Part("Properties", 1),
                Value("hfl.clip.label.name"), Value("hfl.clip.label.text"),
                Value("BE.MasterClip.SelectionInstance", kIdentity),
            End("Properties"),
        End("Node"),
        Part("MarkerOwner", 1), Reference("Markers"), End("MarkerOwner"),
        Reference("Source"), Reference("TimeRemapping"), Value("ClipID", kIdentity),
        Value("FrameRate"), Value("InPoint"), Value("OutPoint"), Value("PlaybackSpeed"),
        Value("PlayBackwards"), Value("InUse", kIdentity), Value("IsMulticam"),
        Value("SelectedTrackIndex"),
    End("Clip"),
};

constexpr BodyRow kTrackProperties[] = {
    Wrapper("Node", 1),
        Part("Properties", 1),
            PropertyList(TrackUIPropertyList), FixedUnless("MZ.TrackTargeted", "1"),
        End("Properties"),
    End("Node"),
};

constexpr BodyRow kTrackItems[] = {
    Part("ClipItems", 3),
        Part("TrackItems", 1), ReferenceList("TrackItem"), End("TrackItems"),
    End("ClipItems"),
    Wrapper("TransitionItems", 3),
        ReferenceList("TransitionTrackItem", kAtItems),
    End("TransitionItems"),
};

constexpr BodyRow kClipTrackItem[] = {
    Part("ClipTrackItem", 4),
        Part("ComponentOwner", 1), Reference("Components"), End("ComponentOwner"),
        Part("TrackItem", 3),
            Fixed("Type", "1"), Value("MediaType", kOfTrack), Value("TrackIndex", kOfTrack),
            Value("Start"), Value("End"), Fixed("TrackRefCount", "1"),
        End("TrackItem"),
        Reference("HeadTransition"), Reference("TailTransition"), Reference("SubClip"),
        Value("IsMuted"), Fixed("GroupRefCount", "0"), Value("LinkRefCount", kOfTrack),
    End("ClipTrackItem"),
};

constexpr BodyRow kComponentChain[] = {
    Part("ComponentChain", 2),
        Part("Components", 1), ReferenceList("Component"), End("Components"),
        Value("NextComponentID", kCounter),
    End("ComponentChain"),
};

constexpr BodyRow kFilterState[] = {
    Part("Node", 1),
        Part("Properties", 1), Value("ECP.Filter.Expanded"), End("Properties"),
    End("Node"),
    Value("Intrinsic", kOfMatchName),
    Part("Params", 1), ReferenceList("Param"), End("Params"),
};

constexpr BodyRow kItemList[] = {
    Part("ProjectItemContainer", 1),
        Part("Items", 1), GuidList("Item"), End("Items"),
    End("ProjectItemContainer"),
};

// Panners. The channels that the formats of a track and of its outputs have in common decide which.

constexpr BodyRow kLayouts[] = {
    ReadLeaf("InputAudioChannelLayout", kByClass), ReadLeaf("OutputAudioChannelLayout", kByClass),
};

constexpr BodyRow kDirectPannerRead[] = {
    ReadLeaf("NumInputChannels", kAssigned), ReadList(AssignedChannelList, kAssigned),
};

constexpr BodyRow kNamedPanner[] = {
    Part("Component", 3),
        Fixed("Intrinsic", "false"),
        Part("Params", 1), ReferenceList("Param"), End("Params"),
        Fixed("DisplayName", ""), Fixed("Bypass", "false"), Value("ID", kIdentity),
    End("Component"),
};

constexpr BodyRow kPanner[] = {
    Part("Component", 3),
        Fixed("Intrinsic", "false"),
        Part("Params", 1), ReferenceList("Param"), End("Params"),
        Fixed("Bypass", "false"), Value("ID", kIdentity),
    End("Component"),
};

constexpr BodyRow kAdaptivePanner[] = {
    Part("PanProcessor", 3),
        Part("AudioComponent", 3),
            Part("Component", 3),
                Fixed("Bypass", "false"), Value("ID", kIdentity), Fixed("Intrinsic", "false"),
                Part("Params", 1), ReferenceList("Param"), End("Params"),
            End("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate", kOfTrack),
            Value("ChannelType", kOfTrack),
        End("AudioComponent"),
    End("PanProcessor"),
    Include(kLayouts),
};

// Classes, in alphabetical order.

constexpr BodyRow kAdaptiveDownmixPanProcessor[] = {
    Include(kAdaptivePanner),
    ReadLeaf("ChannelType", ReadOnly("the track states it")),
};

constexpr BodyRow kAdaptiveToStereoPanProcessor[] = {
    ReadPart("PanProcessor", ReadOnly("a panner of another release of the host")),
    Include(kLayouts),
};

constexpr BodyRow kArbVideoComponentParam[] = {
    Value("ParameterID"), Value("UnitsString", kPresentation),
    Value("KeyframeSetSize", kPresentation), Value("StartKeyframePosition"),
    Value("ParameterControlType"), Value("DiscontinuousInterpolate", kPresentation),
    Value("IsLocked", kPresentation), Value("IsTimeVarying"), Value("Name"),
    SharedBlob("StartKeyframeValue", "StartKeyframeValueChecksum"),
};

constexpr BodyRow kAudioClip[] = {
    Include(kClipPart),
    Part("SecondaryContents", 1), ReferenceList("SecondaryContentItem"), End("SecondaryContents"),
    Value("Gain"), Value("SecondaryIndex"), AudioLayout("AudioChannelLayout"),
};

constexpr BodyRow kAudioClipTrack[] = {
    Part("ClipTrack", 2),
        Part("Track", 3),
            Include(kTrackProperties),
            Fixed("MediaType", kAudioMedia), Value("Index", kOrder), Value("ID", kIdentity),
            Value("IsLocked"), Fixed("IsSyncLocked", "true"), Value("IsMuted"),
        End("Track"),
        Include(kTrackItems), ReadLeaf("TrackIndex", kByOrder),
    End("ClipTrack"),
    Part("AudioTrack", 11),
        Part("ComponentOwner", 1), Reference("Components"), End("ComponentOwner"),
        Reference("Panner"), Fixed("SubType", "1"), Fixed("AutomationMode", "1"),
        Value("Assign", kOfPanner), Value("ChannelType"), Value("FrameRate", kOfGroup),
        Value("NextPannerID", kCounter), Fixed("Solo", "0", kNeutral), Fixed("MutedBySolo", "0"),
        ValueAs("ID", "AudioTrackID", kIdentity),
    End("AudioTrack"),
    Fixed("RecordChannel", "0"),
    ReadLeaf("TrackIndex", kByOrder),
};

constexpr BodyRow kAudioClipTrackItem[] = {
    Include(kClipTrackItem),
    Reference("Panner"), Value("ID", kIdentity),
};

constexpr BodyRow kAudioCompileSettings[] = {
    Value("SampleType"), Value("Interleave"), Value("Compressor"), Reference("AudioSettings"),
};

constexpr BodyRow kAudioComponentChain[] = {
    Value("DefaultVol", kOfComponents),
    Include(kComponentChain),
    Value("DefaultVolumeComponentID", kOfComponents), Value("ChannelType", kOfTrack),
    Value("FrameRate"), Fixed("AutomationMode", "1"),
};

constexpr BodyRow kAudioComponentParam[] = {
    Value("UpperBound", kPresentation), Value("Name"), Value("UnitsString", kPresentation),
    Value("ParameterControlType", kPresentation), Fixed("RangeLocked", "false"),
    ValueOr("IsInverted", "false"), Fixed("Timestamp", "0"), Value("StartKeyframe"),
    Value("CurrentValue"), ValueOr("IsTimeVarying", "false", kPresentation), Value("Keyframes"),
};

constexpr BodyRow kAudioFader[] = {
    Part("AudioComponent", 3),
        Part("Component", 3),
            Part("Params", 1), ReferenceList("Param"), End("Params"),
            Value("ID", kIdentity), Value("Bypass"), Fixed("Intrinsic", "false"),
        End("Component"),
        Fixed("AudioComponentType", "1"), Value("FrameRate", kOfTrack),
        Value("ChannelType", kOfTrack),
    End("AudioComponent"),
};

constexpr BodyRow kAudioFilterComponent[] = {
    Fixed("FilterPreset", "0"), Fixed("FilterIndex", "-1"),
    Value("FilterMatchName"),
    Part("AudioComponent", 3),
        Part("Component", 3),
            Include(kFilterState),
            Value("DisplayName"), Value("Bypass"), Value("ID", kIdentity),
        End("Component"),
        Fixed("AudioComponentType", "0"), Value("FrameRate", kOfTrack),
        Value("ChannelType", kOfTrack),
    End("AudioComponent"),
};

constexpr BodyRow kAudioMediaSource[] = {
    Part("MediaSource", 3),
        Part("Content", 7),
            Value("StartBoundary"), Value("EndBoundary"), Value("BoundariesAreHard"),
            Fixed("ProxyEnabled", "false"),
        End("Content"),
        GuidReference("Media"),
    End("MediaSource"),
    Value("OriginalDuration"),
};

constexpr BodyRow kAudioMeter[] = {
    Wrapper("AudioComponent", 3),
        Wrapper("Component", 3),
            Value("ID", kIdentity), Value("Bypass", kNoCounterpart), Fixed("Intrinsic", "false"),
        End("Component"),
        Fixed("AudioComponentType", "2"), Value("FrameRate", kOfTrack),
        Value("ChannelType", kOfTrack),
    End("AudioComponent"),
    Value("NumChannels", kNoCounterpart),
};

constexpr BodyRow kAudioMixTrack[] = {
    Part("AudioTrack", 11),
        Part("ComponentOwner", 1), Reference("Components"), End("ComponentOwner"),
        Reference("Panner"), Fixed("SubType", "3"), Fixed("AutomationMode", "1"),
        Fixed("Assign", "0"), Value("ChannelType"), Value("FrameRate", kOfGroup),
        Value("NextPannerID", kCounter), Fixed("Solo", "0", kNeutral), Fixed("MutedBySolo", "0"),
        ValueAs("ID", "AudioTrackID", kIdentity),
    End("AudioTrack"),
    Wrapper("Track", 3),
        Fixed("MediaType", kAudioMedia), Value("Index", kOneMaster), Value("ID", kIdentity),
        Fixed("IsLocked", "false"), Fixed("IsSyncLocked", "true"),
        Fixed("IsMuted", "false", kNeutral),
    End("Track"),
    Reference("Inlet", kLeadsNowhere),
};

constexpr BodyRow kAudioSequenceSource[] = {
    Part("SequenceSource", 4),
        GuidReference("Sequence"),
        Wrapper("Content", 7),
            Fixed("ProxyEnabled", "false"), Value("StartBoundary", kOfClip),
            Value("EndBoundary", kOfClip), Value("BoundariesAreHard", kOfClip),
        End("Content"),
    End("SequenceSource"),
    Value("OriginalDuration"),
};

constexpr BodyRow kAudioSettings[] = {
    Value("FrameRate"), Value("ChannelType"),
};

constexpr BodyRow kAudioStream[] = {
    Value("SampleType", kNoCounterpart), Value("FrameRate"),
    Value("SingleChannel", kNoCounterpart), Value("CodecType", kNoCounterpart), Value("Duration"),
    Value("AudioChannelLayout", kNoCounterpart),
};

constexpr BodyRow kAudioTrackGroup[] = {
    Part("TrackGroup", 1),
        Part("Tracks", 1), ReferenceList("Track"), End("Tracks"),
        Value("FrameRate"), Value("NextTrackID", kCounter),
    End("TrackGroup"),
    Reference("MasterTrack"), Fixed("AutomationSafeFlags", "0"), Value("ID", kIdentity),
    Value("NumAdaptiveChannels"),
};

constexpr BodyRow kAudioTrackInlet[] = {
    Wrapper("Sources", 1), ReferenceList("Source"), End("Sources"),
    Value("ChannelType"), Value("FrameRate"),
};

constexpr BodyRow kAudioTransitionTrackItem[] = {
    Part("TransitionTrackItem", 3),
        Value("HasIncomingClip"), Value("HasOutgoingClip"), Value("Alignment"),
        Part("TrackItem", 3),
            Fixed("TrackRefCount", "1"), Value("TrackIndex", kOfTrack),
            Fixed("MediaType", kAudioMedia), Fixed("Type", "2"), Value("End"), Value("Start"),
        End("TrackItem"),
        Value("MatchName"), Value("DisplayName"),
    End("TransitionTrackItem"),
    Value("FrameRate", kOfTrack), Value("ChannelType", kOfTrack),
};

constexpr BodyRow kBinProjectItem[] = {
    Include(kItemList),
    Part("ProjectItem", 1),
        Part("Node", 1),
            Part("Properties", 1),
                Value("Column.PropertyText.Label"), Value("Column.PropertyText.LabelText"),
            End("Properties"),
        End("Node"),
        Value("Name"),
    End("ProjectItem"),
};

constexpr BodyRow kCaptureSettings[] = {
    Value("RecorderID"), Value("AbortCaptureOnDroppedFrames"), Value("AudioChannelType"),
    Value("AudioSampleType"), Value("AudioFrameRate"), Value("AudioCompressorDisplayName"),
    Value("AudioCompressorFourCC"), Value("VideoCompressorDisplayName"),
    Value("VideoCompressorFourCC"), Value("VideoFrameSize"), Value("VideoFrameRate"),
    Value("SupportedFileExtension"), Value("RecordModuleDisplayName"),
};

constexpr BodyRow kChildClipIDSerializer[] = {
    Value("ID"),
};

constexpr BodyRow kClipChannelGroupVectorSerializer[] = {
    Part("ClipChannelVectors", 1),
        ReferenceList("ClipChannelVectorItem"),
    End("ClipChannelVectors"),
};

constexpr BodyRow kClipChannelSerializer[] = {
    Value("mSourceChannelIndex"), Value("SourceClipIndex"),
};

constexpr BodyRow kClipChannelVectorSerializer[] = {
    Part("ClipChannels", 1), ReferenceList("ClipChannelItem"), End("ClipChannels"),
    Value("ChannelType"),
};

constexpr BodyRow kClipLoggingInfo[] = {
    Value("MediaFrameRate"), Value("MediaOutPoint", kOfMedia), Value("MediaInPoint"),
    Value("TimecodeFormat"), Value("CaptureMode", kOfMedia), Value("ClipName", kOfMedia),
    Value("DateShot", kOfMedia), Value("LogNote"), Value("ShotTake"), Value("Scene"),
    Value("Description"), Value("TapeName"), Value("SoundRoll", kSoundReel),
    Value("SoundTimeCode", kSoundReel),
    Value("FilmCameraRoll"), Value("FilmDailyRoll"), Value("FilmLabRoll"),
    Value("FilmKeycodeFeetFrames"), Value("FilmKeycodePerfoffset"), Value("FilmKeycodePrefix"),
    Value("FilmKeycodeReversed"),
};

constexpr BodyRow kClipProjectItem[] = {
    GuidReference("MasterClip"),
    Part("ProjectItem", 1),
        Part("Node", 1),
            Part("Properties", 1),
                ValueAs("Column.PropertyText.Comment", "Comment"), Value("Master_95_Comment_95_1"),
                Value("Master_95_Comment_95_2"), Value("Master_95_Comment_95_3"),
                Value("Master_95_Comment_95_4"), Value("Clip_95_Comment_95_A"),
                Value("Clip_95_Comment_95_B"), Value("Column.PropertyBool.Good"),
                Value("Column.PropertyText.Label"), Value("Column.PropertyText.LabelText"),
            End("Properties"),
        End("Node"),
        Value("Name"),
    End("ProjectItem"),
};

constexpr BodyRow kCompileSettings[] = {
    Reference("AudioCompileSettings"), Reference("VideoCompileSettings"),
    Value("EmbedProjectLink"), Value("ExportWorkAreaOnly"), Value("BeepWhenFinished"),
    Value("AddToProjectWhenFinished"), Value("ExportAudio"), Value("ExportVideo"),
    Value("CompilerFourCC"), Value("CompilerClassIDFourCC"),
};

constexpr BodyRow kDVDMarkers[] = {
    Wrapper("Node", 1), End("Node"),
};

constexpr BodyRow kDefaultPanProcessor[] = {
    Part("PanProcessor", 3),
        Part("AudioComponent", 3),
            Part("Component", 3),
                Value("ID", kIdentity), Fixed("Bypass", "false"), Fixed("Intrinsic", "false"),
            End("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate", kOfTrack),
            Value("ChannelType", kOfTrack),
        End("AudioComponent"),
        Fixed("InputAudioChannelLayout", kMono), Fixed("OutputAudioChannelLayout", kMono),
        Include(kLayouts),
    End("PanProcessor"),
    Value("DefaultPannerInputChannelType", kChannelTypes),
    Value("DefaultPannerOutputChannelType", kChannelTypes),
    Include(kLayouts),
};

constexpr BodyRow kDefaultSequenceSettings[] = {
    Value("DefaultAudioSubmix51Tracks"), Value("DefaultAudioSubmixStereoTracks"),
    Value("DefaultAudioSubmixMonoTracks"), Value("DefaultAudioStandard51Tracks"),
    Value("DefaultAudioStandardStereoTracks"), Value("DefaultAudioStandardMonoTracks"),
    Value("TotalVideoTracks"),
};

constexpr BodyRow kDependency[] = {
    Value("Tag"), Value("Path"),
};

constexpr BodyRow kFileProjectItem[] = {
    Value("FullPath"),
    Wrapper("ProjectItem", 1), Value("Name"), End("ProjectItem"),
};

constexpr BodyRow kLink[] = {
    Part("TrackItemGroup", 1),
        Part("TrackItems", 1), ReferenceList("TrackItem"), End("TrackItems"),
    End("TrackItemGroup"),
};

constexpr BodyRow kMarker[] = {
    MarkerRecord("HULMarker"), ReadLeaf("Comments", kInRecord), ReadLeaf("Name", kInRecord),
    ReadLeaf("ML.Marker.TextName", kInRecord), ReadLeaf("Time", kInRecord),
    ReadLeaf("Duration", kInRecord),
};

constexpr BodyRow kMarkers[] = {
    Part("Markers", 1),
        Pairs("Marker", "StartTime", "0"), Fixed("ByGUID", "byGUID"),
        Fixed("LastMetadataState", kZeroGuidText),
    End("Markers"),
};

constexpr BodyRow kMasterClip[] = {
    Wrapper("Node", 1),
        Wrapper("Properties", 1),
            Value("MZ.MergeClipUtils.AudioTrackNumberFromOriginalMergedClip", kForHost),
            Value("MZ.MergeClip.ParentGUID", kForHost),
            Value("MZ.MergeClipUtils.ComponentMasterClipOriginalName", kForHost),
            FixedIf("MZ.MergeClip.ParentGUID", "MZ.MergeClipUtils.IsComponentMasterClip", "true"),
            Value("Source.Monitor.Multicam.Enabled", kForHost),
            Value("Source.Monitor.Multicam.SwitchCameraAudio", kForHost),
            Value("Source.Monitor.Multicam.CameraNamesOption", kForHost),
            Value("FCPMergedMasterClipID", kForHost), Value("FCPMergedMasterFileID", kForHost),
            Value("FCPMergedTrackOrderIndex", kForHost), Value("FCPMergedMasterKind", kForHost),
        End("Properties"),
    End("Node"),
    Reference("LoggingInfo"), Reference("AudioComponentChain"), Reference("VideoComponentChain"),
    Part("Clips", 1), ReferenceList("Clip"), End("Clips"),
    Wrapper("ChildClipIDs", 1), ReferenceList("ChildClipID", kLeadsNowhere), End("ChildClipIDs"),
    Reference("AudioClipChannelGroups"), Value("Name"), Fixed("AudioPreset", kZeroGuidText),
    Fixed("DefMappingID", kZeroGuidText), Fixed("IsAdjustmentLayer", "false"),
};

constexpr BodyRow kMedia[] = {
    Reference("AudioStream"), Reference("VideoStream"), Value("ActualMediaFilePath"),
    Value("FilePath"), Value("ImplementationID", kNoCounterpart), Value("Title"), Value("Start"),
    Value("AlternateStart"), Value("Infinite"), Value("OfflineReason", kNoCounterpart),
    Value("CaptureStatus", kNoCounterpart), Value("ConformedAudioRate", kNoCounterpart),
    Value("IgnoreVideo"), Value("IgnoreAudio"),
    Value("SingleAudioChannel", kNoCounterpart), Value("StreamNumber"), Fixed("IsProxy", "false"),
    Value("TapeName", kNoCounterpart), Value("LogComment", kNoCounterpart),
    Value("AlternateTapeName", kNoCounterpart), Blob("ImporterPrefs", "ImporterPrefsChecksum"),
    ReadLeaf("UseAlternateStart", ReadOnly("a choice of the user in the host")),
};

constexpr BodyRow kMonoTo16ChannelPanProcessor[] = {
    NotedPart("DirectPanProcessor", 2),
        Part("PanProcessor", 3),
            Part("AudioComponent", 3),
                Include(kNamedPanner),
                Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
                Fixed("AudioChannelLayout", kMonoSpaced), Fixed("ChannelType", "0"),
            End("AudioComponent"),
            Fixed("OutputAudioChannelLayout", kEighteenMono),
        End("PanProcessor"),
        Value("Matrix"),
    End("DirectPanProcessor"),
};

constexpr BodyRow kMonoTo51PanProcessor[] = {
    Fixed("EnableDirectAssignmentMode", "false", Skipped("the assigned channels state it")),
    NotedPart("DirectPanProcessor", 1),
        Fixed("NumInputChannels", "1"), Fixed("AssignedChannel0", "0"),
        Fixed("OutputAudioChannelLayout", kSurroundSpaced),
        Fixed("InputAudioChannelLayout", kMonoSpaced),
        Include(kDirectPannerRead), Include(kLayouts),
        Part("PanProcessor", 2),
            Part("AudioComponent", 3),
                Part("Component", 3),
                    Part("Params", 1), ReferenceList("Param"), End("Params"),
                    Value("ID", kIdentity), Fixed("Bypass", "false"), Fixed("Intrinsic", "false"),
                End("Component"),
                Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
                Fixed("ChannelType", "0"),
            End("AudioComponent"),
        End("PanProcessor"),
    End("DirectPanProcessor"),
};

constexpr BodyRow kMonoToStereoPanProcessor[] = {
    Fixed("OutputAudioChannelLayout", kStereoSpaced),
    Fixed("InputAudioChannelLayout", kMonoSpaced),
    Part("PanProcessor", 3),
        Part("AudioComponent", 3),
            Include(kNamedPanner),
            Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
            Fixed("AudioChannelLayout", kMonoSpaced), Fixed("ChannelType", "0"),
        End("AudioComponent"),
    End("PanProcessor"),
    Include(kLayouts),
};

constexpr BodyRow kPointComponentParam[] = {
    Value("ParameterID"), Value("CurrentValue"), Value("StartKeyframe"),
    Value("ParameterControlType", kPresentation), Value("DiscontinuousInterpolate", kPresentation),
    Value("IsLocked", kPresentation), Value("IsTimeVarying"), Value("Keyframes"), Value("Name"),
};

constexpr BodyRow kProject[] = {
    Wrapper("Node", 1),
        Wrapper("Properties", 1),
            Fixed("Project.Metadata.Schema", ""), Value("Project.Name"),
        End("Properties"),
    End("Node"),
    Value("NextID", kCounter), Value("NextSequenceID", kCounter),
    Reference("ScratchDiskSettings", kSettings),
    Reference("VideoPreviewCompileSettings", kSettings),
    Reference("CustomCompileSettings", kSettings), Reference("StillCompileSettings", kSettings),
    Reference("MovieCompileSettings", kSettings), Reference("AudioCompileSettings", kSettings),
    Reference("ProjectSettings", kSettings), OptionalGuidReference("RootProjectItem"),
};

constexpr BodyRow kProjectSettings[] = {
    Reference("CaptureSettings"), Reference("AudioProxyCompileSettings"),
    Reference("VideoProxyCompileSettings"), Value("VideoProxyFileFormatID"),
    Value("PreviewFileFormatID"), Value("EditingModeID"), Value("ShouldScaleMedia"),
    Value("TitleSafeHeight"), Value("TitleSafeWidth"), Value("ActionSafeHeight"),
    Value("ActionSafeWidth"), Value("AudioTimeDisplay"), Value("VideoTimeDisplayInitial"),
    Value("VideoTimeDisplay"), Reference("DefaultSequenceSettings"), Reference("VideoSettings"),
    Reference("AudioCompileSettings"), Reference("VideoCompileSettings"),
    Reference("AudioSettings"),
};

constexpr BodyRow kRootProjectItem[] = {
    Include(kItemList),
    Wrapper("ProjectItem", 1),
        Wrapper("Node", 1), Value("ID", kIdentity), End("Node"),
        Fixed("Name", "Root Bin"),
    End("ProjectItem"),
};

constexpr BodyRow kS51To16ChannelPanProcessor[] = {
    ReadPart("DirectPanProcessor", ReadOnly("written without content")),
};

constexpr BodyRow kS51ToMonoPanProcessor[] = {
    Part("PanProcessor", 2),
        Part("AudioComponent", 2),
            Include(kPanner),
            Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
            Fixed("ChannelType", "2"),
        End("AudioComponent"),
    End("PanProcessor"),
    Include(kLayouts),
};

constexpr BodyRow kScratchDiskSettings[] = {
    Value("TransferMediaLocation"), Value("DVDEncodingLocation"), Value("AudioPreviewLocation"),
    Value("VideoPreviewLocation"), Value("CapturedAudioLocation"), Value("CapturedVideoLocation"),
};

constexpr BodyRow kSecondaryContent[] = {
    Reference("Content"), Value("ChannelIndex"),
};

constexpr BodyRow kSequence[] = {
    Wrapper("Node", 1),
        Part("Properties", 1),
            PropertyList(SequenceUIPropertyList), Value("BE.Sequence.IsMergedClip"),
        End("Properties"),
    End("Node"),
    Part("MarkerOwner", 1), Reference("Markers"), End("MarkerOwner"),
    Wrapper("DVDMarkerOwner", 1), Reference("DVDMarkers", kLeadsNowhere), End("DVDMarkerOwner"),
    Member("PersistentGroupContainer", 1),
        Part("LinkContainer", 1),
            Part("Links", 1), ReferencesVia("Link", "PersistentGroupContainer"), End("Links"),
        End("LinkContainer"),
    End("PersistentGroupContainer"),
    NotedPart("TrackGroups", 1), Pairs("TrackGroup", "mediatype"), End("TrackGroups"),
    Value("ID", kIdentity), Value("Name"),
    ReadLeaf("BE.Sequence.IsMergedClip", ReadOnly("written among the properties")),
};

constexpr BodyRow kStereoTo16ChannelPanProcessor[] = {
    NotedPart("DirectPanProcessor", 2),
        Part("PanProcessor", 3),
            Part("AudioComponent", 2),
                Include(kPanner),
                Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
                Fixed("ChannelType", "1"),
            End("AudioComponent"),
        End("PanProcessor"),
        Fixed("InputAudioChannelLayout", kStereoSpaced),
        Fixed("OutputAudioChannelLayout", kSixteenMono), Value("Matrix"),
    End("DirectPanProcessor"),
};

constexpr BodyRow kStereoTo51PanProcessor[] = {
    Part("PanProcessor", 2),
        Part("AudioComponent", 2),
            Include(kPanner),
            Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
            Fixed("ChannelType", "1"),
        End("AudioComponent"),
    End("PanProcessor"),
    Include(kLayouts),
};

constexpr BodyRow kStereoToStereoPanProcessor[] = {
    Part("PanProcessor", 3),
        Part("AudioComponent", 3),
            Include(kNamedPanner),
            Fixed("AudioComponentType", "0"), Value("FrameRate", kOfGroup),
            Fixed("ChannelType", "1"), Fixed("OutputAudioChannelLayout", kStereoSpaced),
        End("AudioComponent"),
        Fixed("InputAudioChannelLayout", kStereoSpaced),
    End("PanProcessor"),
    Include(kLayouts),
};

constexpr BodyRow kSubClip[] = {
    Reference("Clip"), GuidReference("MasterClip"),
    OptionalGuidReference("MasterClip2", kOneMasterClip), Value("Name"), Fixed("OrigChGrp", "0"),
};

constexpr BodyRow kTimeComponentParam[] = {
    Value("Name", kOfKeyframes), Value("IsTimeVarying", kOfKeyframes),
    Value("IsLocked", kOfKeyframes), Value("DiscontinuousInterpolate", kOfKeyframes),
    Value("ParameterControlType", kOfKeyframes), Value("LowerBound", kOfKeyframes),
    Value("UpperBound", kOfKeyframes), Value("StartKeyframe", kOfKeyframes), Value("Keyframes"),
    Value("CurrentValue", kOfKeyframes), Value("RangeLocked", kOfKeyframes),
    Value("ParameterID", kOfKeyframes),
};

constexpr BodyRow kTimeRemapping[] = {
    Reference("Keyframes"), ReadPart("Node", Skipped("state of the user interface")),
};

constexpr BodyRow kVideoClip[] = {
    Include(kClipPart), ValueOr("ScaleToFrameSize", "false"), ValueOr("FieldProcessing", "0"),
    ValueOr("ReverseFieldDominance", "false"), ValueOr("DeinterlaceOnHold", "false"),
    ValueOr("HoldFilters", "false"), ValueOr("FrameHold", "0"),
    ValueOr("FrameHoldStart", "-101606400000000000"), Fixed("PosterFrame", "0"),
    Value("TimeInterpolationType"),
};

constexpr BodyRow kVideoClipTrack[] = {
    Part("ClipTrack", 2),
        Part("Track", 3),
            Include(kTrackProperties),
            Fixed("MediaType", kVideoMedia), Value("Index", kOrder), Value("ID", kIdentity),
            Value("IsLocked"), Fixed("IsSyncLocked", "true"), Value("IsMuted"),
        End("Track"),
        Include(kTrackItems),
    End("ClipTrack"),
};

constexpr BodyRow kVideoClipTrackItem[] = {
    Include(kClipTrackItem),
    Value("FrameRect", kOfStream), Value("PixelAspectRatio"),
};

constexpr BodyRow kVideoCompileSettings[] = {
    Value("RelativeFrameSize"), Value("AddKeyframesAtEdits"), Value("AddKeyframesAtMarkers"),
    Value("DoKeyframeEveryNFramesValue"), Value("DoKeyframeEveryNFrames"), Value("VideoFieldType"),
    Value("RealTimePreview"), Value("FramesAtMarkers"), Value("OptimizeStills"),
    Value("IgnoreVideoFilters"), Value("Deinterlace"), Value("ForceRecompressValue"),
    Value("ForceRecompress"), Value("DataRate"), Value("UseDataRate"), Value("Quality"),
    Value("Aspect43"), Value("RenderDepth"), Value("Depth"), Value("VideoFileTypeFourCC"),
    Value("VideoCompilerClassIDFourCC"), Value("Compressor"), Reference("VideoSettings"),
};

constexpr BodyRow kVideoComponentChain[] = {
    Value("SeqID", kIdentity), Value("DefaultOpacity", kOfComponents),
    Value("DefaultMotion", kOfComponents),
    Include(kComponentChain),
};

constexpr BodyRow kVideoComponentParam[] = {
    Value("ParameterID"), Value("CurrentValue"), Value("RangeLocked", kPresentation),
    Value("UpperBound"), Value("LowerBound"), Value("UpperUIBound"), Value("LowerUIBound"),
    Value("StartKeyframe"), Value("ParameterControlType"),
    Value("DiscontinuousInterpolate", kPresentation), Value("IsLocked", kPresentation),
    Value("IsTimeVarying"), Value("Keyframes"), Value("Name"),
};

constexpr BodyRow kVideoFilterComponent[] = {
    Value("SequenceID", kIdentity), Value("VideoFilterType", kOfMatchName), Value("MatchName"),
    Part("Component", 3),
        Include(kFilterState),
        Value("DisplayName"), Value("InstanceName"), Value("Bypass"), Value("ID", kIdentity),
    End("Component"),
    Part("PluginDependencyMap", 1), ReferenceList("Dependency"), End("PluginDependencyMap"),
};

constexpr BodyRow kVideoMediaSource[] = {
    Part("MediaSource", 3),
        GuidReference("Media"),
        Part("Content", 7),
            Value("StartBoundary"), Value("EndBoundary"), Value("BoundariesAreHard"),
            Fixed("ProxyEnabled", "false"),
        End("Content"),
    End("MediaSource"),
    Value("OriginalDuration"),
};

constexpr BodyRow kVideoSettings[] = {
    Value("FrameRate"), Value("MaximumBitDepth"), Value("FrameSize"), Value("PixelAspectRatio"),
};

constexpr BodyRow kVideoStream[] = {
    Value("CodecType", kNoCounterpart), Value("FrameRate"),
    Value("OveriddenFrameRate", kNoCounterpart), Value("FrameRect"), Value("OriginalPAR"),
    Value("IsPAROverridden"), Value("OverriddenPAR"), Value("PARIsUncertain", kNoCounterpart),
    Value("AlphaType"), Value("IsAlphaTypeOverridden"), Value("OverriddenAlphaType"),
    Value("AlphaInfoIsUncertain", kNoCounterpart), Value("IsIgnoreAlphaOverridden"),
    Value("OverriddenIgnoreAlpha"), Value("IsInvertAlphaOverridden"),
    Value("OverriddenInvertAlpha"), Value("OriginalAlphaMatteColor"),
    Value("IsAlphaMatteColorOverridden"), Value("OverriddenAlphaMatterColor"), Value("Duration"),
    Value("OriginalFieldType"), Value("IsFieldTypeOverridden"),
    Value("OverriddenFieldType", kNoCounterpart), Value("FieldTypeIsUncertain", kNoCounterpart),
    Value("IsStill"), Value("IsContinuousTime", kNoCounterpart),
};

constexpr BodyRow kVideoTrackGroup[] = {
    Part("TrackGroup", 1),
        Value("NextTrackID", kCounter),
        Part("Tracks", 1), ReferenceList("Track"), End("Tracks"),
        Value("FrameRate"),
    End("TrackGroup"),
    Value("FrameRect"), Value("PixelAspectRatio"), Fixed("EnablePT", "true"), Value("FieldType"),
};

constexpr BodyRow kVideoTransitionTrackItem[] = {
    Value("AntiAliasQuality"), Value("Direction"), Value("Reverse"),
    Value("SwitchSources"), Value("BorderColor"), Value("BorderWidth"),
    Value("EndPercent"), Value("StartPercent"), Value("CenterPosition"),
    Value("EndPosition"), Value("StartPosition"),
    Part("TransitionTrackItem", 3),
        Value("HasIncomingClip"), Value("HasOutgoingClip"), Value("Alignment"),
        Part("TrackItem", 3),
            Fixed("TrackRefCount", "1"), Value("MediaType", kOfTrack),
            Value("TrackIndex", kOfTrack), Fixed("Type", "2"), Value("End"), Value("Start"),
        End("TrackItem"),
        Value("MatchName"), Value("DisplayName"),
    End("TransitionTrackItem"),
    Fixed("SequenceID", "1"),
};

// A node that holds links, but no object of the document.
constexpr BodyRow kLinkContainer[] = {
    ReferenceList("Link"),
};

constexpr BodyRow kDocument[] = {
    Reference("Project"),
};

constexpr std::string_view kClassIdOfNode = {};

constexpr ProjectClass kClasses[] = {
    {"AdaptiveDownmixPanProcessor", Identity::Number, 1, "4BFF4329-BA93-4072-950A-1F9C4AA7AB0B",
     kAdaptiveDownmixPanProcessor},
    {"AdaptiveToAdaptivePanProcessor", Identity::Number, 1, "4BFF4329-BA93-4072-950A-1F9C4AA7AB0B",
     kAdaptivePanner},
    {"ArbVideoComponentParam", Identity::Number, 2, "313e54d4-6903-49ad-b0bf-8262cdd10f4e",
     kArbVideoComponentParam},
    {"AudioClip", Identity::Number, 8, "b8830d03-de02-41ee-84ec-fe566dc70cd9", kAudioClip},
    {"AudioClipTrack", Identity::Number, 6, "097f6203-99ae-11d5-84f2-8cf14bde7040",
     kAudioClipTrack},
    {"AudioClipTrackItem", Identity::Number, 6, "064ec682-9ba6-11d5-af2d-9ca32c7d6164",
     kAudioClipTrackItem},
    {"AudioCompileSettings", Identity::Number, 6, "34b10007-ab6d-49a7-bac5-7b60d919e387",
     kAudioCompileSettings, kSettings},
    {"AudioComponentChain", Identity::Number, 3, "3cb131d1-d3c0-47ae-a19a-bdf75ea11674",
     kAudioComponentChain},
    {"AudioComponentParam", Identity::Number, 9, kClassIdOfNode, kAudioComponentParam},
    {"AudioFader", Identity::Number, 3, "1a38c583-ed5c-11d5-abc4-c1cbf61ec590", kAudioFader},
    {"AudioFilterComponent", Identity::Number, 2, "d77a90a0-6c9e-44bf-9b20-de8c21168fe1",
     kAudioFilterComponent},
    {"AudioMediaSource", Identity::Number, 2, "f588da05-fc2a-4fbc-9383-74d653b379e3",
     kAudioMediaSource},
    {"AudioMeter", Identity::Number, 2, "72ea4700-f615-11d5-abc4-c186585e63e0", kAudioMeter},
    {"AudioMixTrack", Identity::Number, 3, "4b1d8400-e89e-11d5-abc4-a1a13b1e80a0", kAudioMixTrack},
    {"AudioSequenceSource", Identity::Number, 7, "e8d4cc83-38cb-491f-9d94-e5f7e3b205ee",
     kAudioSequenceSource},
    {"AudioSettings", Identity::Number, 7, "6baf5521-b132-4634-840e-13cec5bc86a4",
     kAudioSettings, kSettings},
    {"AudioStream", Identity::Number, 6, "0b5cf52f-2b85-4863-890b-8844b64ecfe9", kAudioStream},
    {"AudioTrackGroup", Identity::Number, 6, "9b9238b9-53a8-4cc3-b03f-b36246d052e6",
     kAudioTrackGroup},
    {"AudioTrackInlet", Identity::Number, 3, "be3af080-e8c6-11d5-abc4-a1c6d5dee670",
     kAudioTrackInlet, kLeadsNowhere},
    {"AudioTransitionTrackItem", Identity::Number, 2, "23f687b6-9c5a-42f4-bea1-e7b3e28e7082",
     kAudioTransitionTrackItem},
    {"BinProjectItem", Identity::GuidText, 1, "dbfd6653-24da-480e-a35e-ba45e9504e4b",
     kBinProjectItem},
    {"CaptureSettings", Identity::Number, 10, "328c2aa2-47f9-4211-805b-b6a6dbd4ca29",
     kCaptureSettings, kSettings},
    {"ChildClipIDSerializer", Identity::Number, 1, "4e5c7474-0c8b-4b51-908f-1f5b607dc751",
     kChildClipIDSerializer, kLeadsNowhere},
    {"ClipChannelGroupVectorSerializer", Identity::Number, 1,
     "a3127a8c-95d4-456e-a7f5-171b3f922426", kClipChannelGroupVectorSerializer},
    {"ClipChannelSerializer", Identity::Number, 1, "5c89aa7a-89a6-4483-becd-f2b1def42316",
     kClipChannelSerializer},
    {"ClipChannelVectorSerializer", Identity::Number, 1, "333d203b-3a53-4195-8894-fc7523ff3dc7",
     kClipChannelVectorSerializer},
    {"ClipLoggingInfo", Identity::Number, 7, "77ab7fdd-dcdf-465d-9906-7a330ca1e738",
     kClipLoggingInfo},
    {"ClipProjectItem", Identity::GuidText, 1, "cb4e0ed7-aca1-4171-8525-e3658dec06dd",
     kClipProjectItem},
    {"CompileSettings", Identity::Number, 4, "18a35d66-597e-4157-b783-938b5bec3547",
     kCompileSettings, kSettings},
    {"DVDMarkers", Identity::Number, 1, "efb6b9f5-5b1c-4eaa-83ef-d6f93b0cac79",
     kDVDMarkers, kLeadsNowhere},
    {"DefaultPanProcessor", Identity::Number, 2, "33a94282-ee2c-11d5-abc4-c1cd7f9e3c10",
     kDefaultPanProcessor},
    {"DefaultSequenceSettings", Identity::Number, 2, "567bdf53-d6d9-4d61-b2f1-f4834bebea9b",
     kDefaultSequenceSettings, kSettings},
    {"Dependency", Identity::Number, 1, "38999b93-d0a4-4bac-9f6d-7ca53546b263", kDependency},
    {"FileProjectItem", Identity::GuidText, 1, "B28F14FE-793F-45be-BB28-FB82644995F4",
     kFileProjectItem, WriteOnly("the report of an earlier conversion")},
    {"Link", Identity::Number, 1, "149d4ea5-a7d4-4b34-9bb7-16d783904bf2", kLink},
    {"Marker", Identity::Number, 3, "a45508e0-3ff7-4d04-90a7-2e0dfff4c910", kMarker},
    {"Markers", Identity::Number, 3, "bee50706-b524-416c-9f03-b596ce5f6866", kMarkers},
    {"MasterClip", Identity::GuidText, 8, "fb11c33a-b0a9-4465-aa94-b6d5db2628cf", kMasterClip},
    {"Media", Identity::GuidText, 21, "7a5c103e-f3ac-4391-b6b4-7cc3d2f9a7ff", kMedia},
    {"MonoTo16ChannelPanProcessor", Identity::Number, 2, "8c9778ad-af4e-4e98-99fe-542f4eda2dac",
     kMonoTo16ChannelPanProcessor},
    {"MonoTo51PanProcessor", Identity::Number, 1, "5b61de83-eef0-11d5-abc4-c1cf9c9e1f30",
     kMonoTo51PanProcessor},
    {"MonoToStereoPanProcessor", Identity::Number, 1, "33a94283-ee2c-11d5-abc4-c1cd7f9e3c10",
     kMonoToStereoPanProcessor},
    {"PointComponentParam", Identity::Number, 3, "ca81d347-309b-44d2-acc7-1c572efb973c",
     kPointComponentParam},
    {"Project", Identity::Number, 26, "62ad66dd-0dcd-42da-a660-6d8fbde94876", kProject},
    {"ProjectSettings", Identity::Number, 17, "50c16708-a1a1-4d2f-98d5-4e283ae28353",
     kProjectSettings, kSettings},
    {"RootProjectItem", Identity::GuidText, 1, "1c307a89-9318-47d7-a583-bf2553736543",
     kRootProjectItem},
    {"S51To16ChannelPanProcessor", Identity::Number, 1, "F135F697-20E3-4a36-8EE1-355DEB9EA1AE",
     kS51To16ChannelPanProcessor},
    {"S51ToMonoPanProcessor", Identity::Number, 1, "52454002-efca-11d5-abc4-c1cf8f1e2ca0",
     kS51ToMonoPanProcessor},
    {"S51ToStereoPanProcessor", Identity::Number, 1, "52454004-efca-11d5-abc4-c1cf8f1e2ca0",
     kS51ToMonoPanProcessor},
    {"ScratchDiskSettings", Identity::Number, 2, "4c6ed82b-a81c-4df1-8bd0-750504c4b560",
     kScratchDiskSettings, kSettings},
    {"SecondaryContent", Identity::Number, 1, "f9d004b5-cb04-4e2f-af6f-64fadc2c4be9",
     kSecondaryContent},
    {"Sequence", Identity::GuidText, 11, "6a15d903-8739-11d5-af2d-9b7855ad8974", kSequence},
    {"StereoTo16ChannelPanProcessor", Identity::Number, 2, "1A356806-5DC5-4e2f-914C-D8353E1A6581",
     kStereoTo16ChannelPanProcessor},
    {"StereoTo51PanProcessor", Identity::Number, 1, "52454000-efca-11d5-abc4-c1cf8f1e2ca0",
     kStereoTo51PanProcessor},
    {"StereoToMonoPanProcessor", Identity::Number, 1, "5b61de81-eef0-11d5-abc4-c1cf9c9e1f30",
     kStereoTo51PanProcessor},
    {"StereoToStereoPanProcessor", Identity::Number, 1, "7bf86a01-efbe-11d5-abc4-c1ce2b1e9090",
     kStereoToStereoPanProcessor},
    {"SubClip", Identity::Number, 5, "e0c58dc9-dbdd-4166-aef7-5db7e3f22e84", kSubClip},
    {"TimeComponentParam", Identity::Number, 8, "278ae1f9-ab7b-4dff-a53c-21029a399a9d",
     kTimeComponentParam},
    {"TimeRemapping", Identity::Number, 2, "ace5148e-9c9b-40ed-9f82-64cb67308464", kTimeRemapping},
    {"VideoClip", Identity::Number, 11, "9308dbef-2440-4acb-9ab2-953b9a4e82ec", kVideoClip},
    {"VideoClipTrack", Identity::Number, 1, "f68dcd81-8805-11d5-af2d-9bfa89d4ddd4",
     kVideoClipTrack},
    {"VideoClipTrackItem", Identity::Number, 5, "368b0406-29e3-4923-9fcd-094fbf9a1089",
     kVideoClipTrackItem},
    {"VideoCompileSettings", Identity::Number, 9, "db372db5-7de2-4d3c-98ae-f42659d77b22",
     kVideoCompileSettings, kSettings},
    {"VideoComponentChain", Identity::Number, 1, "0970e08a-f58f-4108-b29a-1a717b8e12e2",
     kVideoComponentChain},
    {"VideoComponentParam", Identity::Number, 8, kClassIdOfNode, kVideoComponentParam},
    {"VideoFilterComponent", Identity::Number, 7, "d10da199-beea-4dd1-b941-ed3a78766d50",
     kVideoFilterComponent},
    {"VideoMediaSource", Identity::Number, 2, "e64ddf74-8fac-4682-8aa8-0e0ca2248949",
     kVideoMediaSource},
    {"VideoSequenceSource", Identity::Number, 3, "4752dfa9-7a7e-4a3b-a25b-cafde1a8d036",
     kAudioSequenceSource},
    {"VideoSettings", Identity::Number, 9, "58474264-30c4-43a2-bba5-dc0812df8a3a",
     kVideoSettings, kSettings},
    {"VideoStream", Identity::Number, 13, "a36e4719-3ec6-4a0c-ab11-8b4aab377aa5", kVideoStream},
    {"VideoTrackGroup", Identity::Number, 8, "9e9abf7a-0918-49c2-91ae-991b5dde77bb",
     kVideoTrackGroup},
    {"VideoTransitionTrackItem", Identity::Number, 5, "3eeaed31-f78e-4144-b8e8-077656517181",
     kVideoTransitionTrackItem},
    {"LinkContainer", Identity::None, 0, {}, kLinkContainer,
     WriteOnly("no object of the document")},
    {"AdaptiveToStereoPanProcessor", Identity::None, 0, {}, kAdaptiveToStereoPanProcessor,
     ReadOnly("a panner of another release of the host")},
    {"CaptioningStream", Identity::None, 0, {}, {}, ReadOnly("xmeml has no captions")},
    {"PreviewMediaSerializer", Identity::None, 0, {}, {}, Skipped("rendered previews of the host")},
};

// clang-format on

constexpr bool PartsMatch(std::span<const BodyRow> rows)
{
    Name open[8];
    std::size_t depth = 0;
    for (const BodyRow& row : rows) {
        if (row.kind == RowKind::Part || row.kind == RowKind::Member ||
            row.kind == RowKind::Wrapper)
            open[depth++] = row.tag;
        if (row.kind == RowKind::End && (depth == 0 || !(open[--depth] == row.tag)))
            return false;
        if (row.kind == RowKind::Include && !PartsMatch(row.rows))
            return false;
    }
    return depth == 0;
}
static_assert(std::ranges::all_of(kClasses,
                                  [](const ProjectClass& row) { return PartsMatch(row.body); }));

constexpr NameIndex kClassIndex(kClasses);

} // namespace

std::span<const ProjectClass> ProjectClasses()
{
    return kClasses;
}

const ProjectClass* FindProjectClass(std::string_view name)
{
    return kClassIndex.Find(name);
}

std::span<const BodyRow> DocumentBody()
{
    return kDocument;
}

} // namespace XPJ

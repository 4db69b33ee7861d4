#include "project/classes.h"

#include "core/host_properties.h"
#include "tree/name_index.h"

namespace XPJ {

namespace {

constexpr BodyRow Open(Name tag, unsigned version)
{
    return {.kind = RowKind::Open, .version = version, .tag = tag};
}

constexpr BodyRow Close(Name tag)
{
    return {.kind = RowKind::Close, .tag = tag};
}

constexpr BodyRow Include(std::span<const BodyRow> rows)
{
    return {.kind = RowKind::Include, .tag = {}, .rows = rows};
}

constexpr BodyRow Fixed(Name tag, std::string_view text)
{
    return {.kind = RowKind::Fixed, .tag = tag, .text = text};
}

constexpr BodyRow FixedIf(Name key, Name tag, std::string_view text)
{
    return {.kind = RowKind::FixedIf, .tag = tag, .key = key, .text = text};
}

constexpr BodyRow FixedUnless(Name tag, std::string_view text)
{
    return {.kind = RowKind::FixedUnless, .tag = tag, .text = text};
}

constexpr BodyRow Value(Name tag)
{
    return {.kind = RowKind::Value, .tag = tag};
}

constexpr BodyRow ValueAs(Name tag, Name key)
{
    return {.kind = RowKind::Value, .tag = tag, .key = key};
}

constexpr BodyRow PropertyList(std::span<const Name> (*list)())
{
    return {.kind = RowKind::PropertyList, .tag = {}, .list = list};
}

constexpr BodyRow Reference(Name tag)
{
    return {.kind = RowKind::Reference, .tag = tag};
}

constexpr BodyRow ReferenceList(Name tag, Name via = {})
{
    return {.kind = RowKind::ReferenceList, .tag = tag, .via = via};
}

// `missing` stands for a child without the property of `First`.
constexpr BodyRow Pairs(Name tag, Name first, std::string_view missing = {})
{
    return {.kind = RowKind::Pairs, .tag = tag, .key = first, .text = missing};
}

constexpr BodyRow GuidReference(Name tag)
{
    return {.kind = RowKind::GuidReference, .tag = tag};
}

constexpr BodyRow OptionalGuidReference(Name tag)
{
    return {.kind = RowKind::OptionalGuidReference, .tag = tag};
}

constexpr BodyRow GuidList(Name tag, Name otherChild)
{
    return {.kind = RowKind::GuidList, .tag = tag, .key = otherChild};
}

constexpr BodyRow Blob(Name tag, Name checksum)
{
    return {.kind = RowKind::Blob, .tag = tag, .key = checksum};
}

constexpr BodyRow BlobOrEmpty(Name tag, Name checksum)
{
    return {.kind = RowKind::BlobOrEmpty, .tag = tag, .key = checksum};
}

constexpr BodyRow AudioLayout(Name tag)
{
    return {.kind = RowKind::AudioLayout, .tag = tag};
}

constexpr BodyRow MarkerRecord(Name tag)
{
    return {.kind = RowKind::MarkerRecord, .tag = tag};
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

// The part that clips of both kinds share. No reader asks for its version.
constexpr BodyRow kClipBlock[] = {
    Open("Clip", 18),
        Open("Node", 1),
            Open("Properties", 1),
                Value("hfl.clip.label.name"), Value("BE.MasterClip.SelectionInstance"),
            Close("Properties"),
        Close("Node"),
        Open("MarkerOwner", 1),
            Reference("Markers"),
        Close("MarkerOwner"),
        Reference("Source"), Reference("TimeRemapping"), Value("ClipID"), Value("FrameRate"),
        Value("InPoint"), Value("OutPoint"), Value("PlaybackSpeed"), Value("PlayBackwards"),
        Value("InUse"), Value("IsMulticam"), Value("SelectedTrackIndex"),
    Close("Clip"),
};

constexpr BodyRow kAdaptiveDownmixPanProcessor[] = {
    Open("PanProcessor", 3),
        Open("AudioComponent", 3),
            Open("Component", 3),
                Fixed("Bypass", "false"), Value("ID"), Fixed("Intrinsic", "false"),
                Open("Params", 1),
                    ReferenceList("Param"),
                Close("Params"),
            Close("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate"), Value("ChannelType"),
        Close("AudioComponent"),
    Close("PanProcessor"),
};

constexpr BodyRow kArbVideoComponentParam[] = {
    Value("ParameterID"), Value("UnitsString"), Value("KeyframeSetSize"),
    Value("StartKeyframePosition"), Value("ParameterControlType"),
    Value("DiscontinuousInterpolate"), Value("IsLocked"), Value("IsTimeVarying"), Value("Name"),
    BlobOrEmpty("StartKeyframeValue", "StartKeyframeValueChecksum"),
};

constexpr BodyRow kAudioClip[] = {
    Include(kClipBlock),
    Open("SecondaryContents", 1),
        ReferenceList("SecondaryContentItem"),
    Close("SecondaryContents"),
    Value("Gain"), Value("SecondaryIndex"), AudioLayout("AudioChannelLayout"),
};

constexpr BodyRow kAudioClipTrack[] = {
    Open("ClipTrack", 2),
        Open("Track", 3),
            Open("Node", 1),
                Open("Properties", 1),
                    PropertyList(TrackUIPropertyList), FixedUnless("MZ.TrackTargeted", "1"),
                Close("Properties"),
            Close("Node"),
            Fixed("MediaType", kAudioMedia), Value("Index"), Value("ID"), Value("IsLocked"),
            Fixed("IsSyncLocked", "true"), Value("IsMuted"),
        Close("Track"),
        Open("ClipItems", 3),
            Open("TrackItems", 1),
                ReferenceList("TrackItem"),
            Close("TrackItems"),
        Close("ClipItems"),
        Open("TransitionItems", 3),
            ReferenceList("TransitionTrackItem"),
        Close("TransitionItems"),
    Close("ClipTrack"),
    Open("AudioTrack", 11),
        Open("ComponentOwner", 1),
            Reference("Components"),
        Close("ComponentOwner"),
        Reference("Panner"), Fixed("SubType", "1"), Fixed("AutomationMode", "1"), Value("Assign"),
        Value("ChannelType"), Value("FrameRate"), Value("NextPannerID"), Fixed("Solo", "0"),
        Fixed("MutedBySolo", "0"), ValueAs("ID", "AudioTrackID"),
    Close("AudioTrack"),
    Fixed("RecordChannel", "0"),
};

constexpr BodyRow kAudioClipTrackItem[] = {
    Open("ClipTrackItem", 4),
        Open("ComponentOwner", 1),
            Reference("Components"),
        Close("ComponentOwner"),
        Open("TrackItem", 3),
            Fixed("Type", "1"), Value("MediaType"), Value("TrackIndex"), Value("Start"),
            Value("End"), Fixed("TrackRefCount", "1"),
        Close("TrackItem"),
        Reference("HeadTransition"), Reference("TailTransition"), Reference("SubClip"),
        Value("IsMuted"), Fixed("GroupRefCount", "0"), Value("LinkRefCount"),
    Close("ClipTrackItem"),
    Reference("Panner"), Value("ID"),
};

constexpr BodyRow kAudioCompileSettings[] = {
    Value("SampleType"), Value("Interleave"), Value("Compressor"), Reference("AudioSettings"),
};

constexpr BodyRow kAudioComponentChain[] = {
    Value("DefaultVol"),
    Open("ComponentChain", 2),
        Open("Components", 1),
            ReferenceList("Component"),
        Close("Components"),
        Value("NextComponentID"),
    Close("ComponentChain"),
    Value("DefaultVolumeComponentID"), Value("ChannelType"), Value("FrameRate"),
    Fixed("AutomationMode", "1"),
};

constexpr BodyRow kAudioComponentParam[] = {
    Value("UpperBound"), Value("Name"), Value("UnitsString"), Value("ParameterControlType"),
    Value("RangeLocked"), Value("IsInverted"), Value("Timestamp"), Value("StartKeyframe"),
    Value("CurrentValue"), Value("IsTimeVarying"), Value("Keyframes"),
};

constexpr BodyRow kAudioFader[] = {
    Open("AudioComponent", 3),
        Open("Component", 3),
            Open("Params", 1),
                ReferenceList("Param"),
            Close("Params"),
            Value("ID"), Value("Bypass"), Fixed("Intrinsic", "false"),
        Close("Component"),
        Fixed("AudioComponentType", "1"), Value("FrameRate"), Value("ChannelType"),
    Close("AudioComponent"),
};

constexpr BodyRow kAudioFilterComponent[] = {
    Value("FilterPreset"), Value("FilterIndex"), Value("FilterMatchName"),
    Open("AudioComponent", 3),
        Open("Component", 3),
            Open("Node", 1),
                Open("Properties", 1),
                    Value("ECP.Filter.Expanded"),
                Close("Properties"),
            Close("Node"),
            Value("Intrinsic"),
            Open("Params", 1),
                ReferenceList("Param"),
            Close("Params"),
            Value("DisplayName"), Value("Bypass"), Value("ID"),
        Close("Component"),
        Value("AudioComponentType"), Value("FrameRate"), Value("ChannelType"),
    Close("AudioComponent"),
};

constexpr BodyRow kAudioMediaSource[] = {
    Open("MediaSource", 3),
        Open("Content", 7),
            Value("StartBoundary"), Value("EndBoundary"), Value("BoundariesAreHard"),
            Fixed("ProxyEnabled", "false"),
        Close("Content"),
        GuidReference("Media"),
    Close("MediaSource"),
    Value("OriginalDuration"),
};

constexpr BodyRow kAudioMeter[] = {
    Open("AudioComponent", 3),
        Open("Component", 3),
            Value("ID"), Value("Bypass"), Fixed("Intrinsic", "false"),
        Close("Component"),
        Fixed("AudioComponentType", "2"), Value("FrameRate"), Value("ChannelType"),
    Close("AudioComponent"),
    Value("NumChannels"),
};

constexpr BodyRow kAudioMixTrack[] = {
    Open("AudioTrack", 11),
        Open("ComponentOwner", 1),
            Reference("Components"),
        Close("ComponentOwner"),
        Reference("Panner"), Fixed("SubType", "3"), Fixed("AutomationMode", "1"),
        Fixed("Assign", "0"), Value("ChannelType"), Value("FrameRate"), Value("NextPannerID"),
        Fixed("Solo", "0"), Fixed("MutedBySolo", "0"), ValueAs("ID", "AudioTrackID"),
    Close("AudioTrack"),
    Open("Track", 3),
        Fixed("MediaType", kAudioMedia), Value("Index"), Value("ID"), Fixed("IsLocked", "false"),
        Fixed("IsSyncLocked", "true"), Fixed("IsMuted", "false"),
    Close("Track"),
    Reference("Inlet"),
};

constexpr BodyRow kAudioSequenceSource[] = {
    Open("SequenceSource", 4),
        GuidReference("Sequence"),
        Open("Content", 7),
            Fixed("ProxyEnabled", "false"), Value("StartBoundary"), Value("EndBoundary"),
            Value("BoundariesAreHard"),
        Close("Content"),
    Close("SequenceSource"),
    Value("OriginalDuration"),
};

constexpr BodyRow kAudioSettings[] = {
    Value("FrameRate"), Value("ChannelType"),
};

constexpr BodyRow kAudioStream[] = {
    Value("SampleType"), Value("FrameRate"), Value("SingleChannel"), Value("CodecType"),
    Value("Duration"), Value("AudioChannelLayout"),
};

constexpr BodyRow kAudioTrackGroup[] = {
    Open("TrackGroup", 1),
        Open("Tracks", 1),
            ReferenceList("Track"),
        Close("Tracks"),
        Value("FrameRate"), Value("NextTrackID"),
    Close("TrackGroup"),
    Reference("MasterTrack"), Fixed("AutomationSafeFlags", "0"), Value("ID"),
    Value("NumAdaptiveChannels"),
};

constexpr BodyRow kAudioTrackInlet[] = {
    Open("Sources", 1),
        ReferenceList("Source"),
    Close("Sources"),
    Value("ChannelType"), Value("FrameRate"),
};

constexpr BodyRow kAudioTransitionTrackItem[] = {
    Open("TransitionTrackItem", 3),
        Value("HasIncomingClip"), Value("HasOutgoingClip"), Value("Alignment"),
        Open("TrackItem", 3),
            Fixed("TrackRefCount", "1"), Value("TrackIndex"), Fixed("MediaType", kAudioMedia),
            Fixed("Type", "2"), Value("End"), Value("Start"),
        Close("TrackItem"),
        Value("MatchName"), Value("DisplayName"),
    Close("TransitionTrackItem"),
    Value("FrameRate"), Value("ChannelType"),
};

constexpr BodyRow kBinProjectItem[] = {
    Open("ProjectItemContainer", 1),
        Open("Items", 1),
            GuidList("Item", "ProjectItem"),
        Close("Items"),
    Close("ProjectItemContainer"),
    Open("ProjectItem", 1),
        Open("Node", 1),
            Open("Properties", 1),
                Value("Column.PropertyText.Label"),
            Close("Properties"),
        Close("Node"),
        Value("Name"),
    Close("ProjectItem"),
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
    Open("ClipChannelVectors", 1),
        ReferenceList("ClipChannelVectorItem"),
    Close("ClipChannelVectors"),
};

constexpr BodyRow kClipChannelSerializer[] = {
    Value("mSourceChannelIndex"), Value("SourceClipIndex"),
};

constexpr BodyRow kClipChannelVectorSerializer[] = {
    Open("ClipChannels", 1),
        ReferenceList("ClipChannelItem"),
    Close("ClipChannels"),
    Value("ChannelType"),
};

constexpr BodyRow kClipLoggingInfo[] = {
    Value("MediaFrameRate"), Value("MediaOutPoint"), Value("MediaInPoint"), Value("TimecodeFormat"),
    Value("CaptureMode"), Value("ClipName"), Value("DateShot"), Value("LogNote"), Value("ShotTake"),
    Value("Scene"), Value("Description"), Value("TapeName"), Value("SoundRoll"),
    Value("SoundTimeCode"), Value("FilmCameraRoll"), Value("FilmDailyRoll"), Value("FilmLabRoll"),
    Value("FilmKeycodeFeetFrames"), Value("FilmKeycodePerfoffset"), Value("FilmKeycodePrefix"),
    Value("FilmKeycodeReversed"),
};

constexpr BodyRow kClipProjectItem[] = {
    GuidReference("MasterClip"),
    Open("ProjectItem", 1),
        Open("Node", 1),
            Open("Properties", 1),
                ValueAs("Column.PropertyText.Comment", "Comment"), Value("Master_95_Comment_95_1"),
                Value("Master_95_Comment_95_2"), Value("Master_95_Comment_95_3"),
                Value("Master_95_Comment_95_4"), Value("Clip_95_Comment_95_A"),
                Value("Clip_95_Comment_95_B"), Value("Column.PropertyBool.Good"),
                Value("Column.PropertyText.Label"),
            Close("Properties"),
        Close("Node"),
        Value("Name"),
    Close("ProjectItem"),
};

constexpr BodyRow kCompileSettings[] = {
    Reference("AudioCompileSettings"), Reference("VideoCompileSettings"), Value("EmbedProjectLink"),
    Value("ExportWorkAreaOnly"), Value("BeepWhenFinished"), Value("AddToProjectWhenFinished"),
    Value("ExportAudio"), Value("ExportVideo"), Value("CompilerFourCC"),
    Value("CompilerClassIDFourCC"),
};

constexpr BodyRow kDVDMarkers[] = {
    Open("Node", 1),
    Close("Node"),
};

constexpr BodyRow kDefaultPanProcessor[] = {
    Open("PanProcessor", 3),
        Open("AudioComponent", 3),
            Open("Component", 3),
                Value("ID"), Fixed("Bypass", "false"), Fixed("Intrinsic", "false"),
            Close("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate"), Value("ChannelType"),
        Close("AudioComponent"),
        Fixed("InputAudioChannelLayout", kMono), Fixed("OutputAudioChannelLayout", kMono),
    Close("PanProcessor"),
    Value("DefaultPannerInputChannelType"), Value("DefaultPannerOutputChannelType"),
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
    Open("ProjectItem", 1),
        Value("Name"),
    Close("ProjectItem"),
};

constexpr BodyRow kLink[] = {
    Open("TrackItemGroup", 1),
        Open("TrackItems", 1),
            ReferenceList("TrackItem"),
        Close("TrackItems"),
    Close("TrackItemGroup"),
};

constexpr BodyRow kMarker[] = {
    MarkerRecord("HULMarker"),
};

constexpr BodyRow kMarkers[] = {
    Open("Markers", 1),
        Pairs("Marker", "StartTime", "0"), Fixed("ByGUID", "byGUID"),
        Fixed("LastMetadataState", kZeroGuidText),
    Close("Markers"),
};

constexpr BodyRow kMasterClip[] = {
    Open("Node", 1),
        Open("Properties", 1),
            Value("MZ.MergeClipUtils.AudioTrackNumberFromOriginalMergedClip"),
            Value("MZ.MergeClip.ParentGUID"),
            Value("MZ.MergeClipUtils.ComponentMasterClipOriginalName"),
            FixedIf("MZ.MergeClip.ParentGUID", "MZ.MergeClipUtils.IsComponentMasterClip", "true"),
            Value("Source.Monitor.Multicam.Enabled"),
            Value("Source.Monitor.Multicam.SwitchCameraAudio"),
            Value("Source.Monitor.Multicam.CameraNamesOption"), Value("FCPMergedMasterClipID"),
            Value("FCPMergedMasterFileID"), Value("FCPMergedTrackOrderIndex"),
            Value("FCPMergedMasterKind"),
        Close("Properties"),
    Close("Node"),
    Reference("LoggingInfo"), Reference("AudioComponentChain"), Reference("VideoComponentChain"),
    Open("Clips", 1),
        ReferenceList("Clip"),
    Close("Clips"),
    Open("ChildClipIDs", 1),
        ReferenceList("ChildClipID"),
    Close("ChildClipIDs"),
    Reference("AudioClipChannelGroups"), Value("Name"), Fixed("AudioPreset", kZeroGuidText),
    Fixed("DefMappingID", kZeroGuidText), Fixed("IsAdjustmentLayer", "false"),
};

constexpr BodyRow kMedia[] = {
    Reference("AudioStream"), Reference("VideoStream"), Value("ActualMediaFilePath"),
    Value("FilePath"), Value("ImplementationID"), Value("Title"), Value("Start"),
    Value("AlternateStart"), Value("Infinite"), Value("OfflineReason"), Value("CaptureStatus"),
    Value("ConformedAudioRate"), Value("IgnoreVideo"), Value("IgnoreAudio"),
    Value("SingleAudioChannel"), Value("StreamNumber"), Fixed("IsProxy", "false"),
    Value("TapeName"), Value("LogComment"), Value("AlternateTapeName"),
    Blob("ImporterPrefs", "ImporterPrefsChecksum"),
};

constexpr BodyRow kMonoTo16ChannelPanProcessor[] = {
    Open("DirectPanProcessor", 2),
        Open("PanProcessor", 3),
            Open("AudioComponent", 3),
                Open("Component", 3),
                    Fixed("Intrinsic", "false"),
                    Open("Params", 1),
                        ReferenceList("Param"),
                    Close("Params"),
                    Fixed("DisplayName", ""), Fixed("Bypass", "false"), Value("ID"),
                Close("Component"),
                Fixed("AudioComponentType", "0"), Value("FrameRate"),
                Fixed("AudioChannelLayout", kMonoSpaced), Fixed("ChannelType", "0"),
            Close("AudioComponent"),
            Fixed("OutputAudioChannelLayout", kEighteenMono),
        Close("PanProcessor"),
        Value("Matrix"),
    Close("DirectPanProcessor"),
};

constexpr BodyRow kMonoTo51PanProcessor[] = {
    Fixed("EnableDirectAssignmentMode", "false"),
    Open("DirectPanProcessor", 1),
        Fixed("NumInputChannels", "1"), Fixed("AssignedChannel0", "0"),
        Fixed("OutputAudioChannelLayout", kSurroundSpaced),
        Fixed("InputAudioChannelLayout", kMonoSpaced),
        Open("PanProcessor", 2),
            Open("AudioComponent", 3),
                Open("Component", 3),
                    Open("Params", 1),
                        ReferenceList("Param"),
                    Close("Params"),
                    Value("ID"), Fixed("Bypass", "false"), Fixed("Intrinsic", "false"),
                Close("Component"),
                Fixed("AudioComponentType", "0"), Value("FrameRate"), Fixed("ChannelType", "0"),
            Close("AudioComponent"),
        Close("PanProcessor"),
    Close("DirectPanProcessor"),
};

constexpr BodyRow kMonoToStereoPanProcessor[] = {
    Fixed("OutputAudioChannelLayout", kStereoSpaced), Fixed("InputAudioChannelLayout", kMonoSpaced),
    Open("PanProcessor", 3),
        Open("AudioComponent", 3),
            Open("Component", 3),
                Fixed("Intrinsic", "false"),
                Open("Params", 1),
                    ReferenceList("Param"),
                Close("Params"),
                Fixed("DisplayName", ""), Fixed("Bypass", "false"), Value("ID"),
            Close("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate"),
            Fixed("AudioChannelLayout", kMonoSpaced), Fixed("ChannelType", "0"),
        Close("AudioComponent"),
    Close("PanProcessor"),
};

constexpr BodyRow kPointComponentParam[] = {
    Value("ParameterID"), Value("CurrentValue"), Value("StartKeyframe"),
    Value("ParameterControlType"), Value("DiscontinuousInterpolate"), Value("IsLocked"),
    Value("IsTimeVarying"), Value("Keyframes"), Value("Name"),
};

constexpr BodyRow kProject[] = {
    Open("Node", 1),
        Open("Properties", 1),
            Fixed("Project.Metadata.Schema", ""),
        Close("Properties"),
    Close("Node"),
    Value("NextID"), Value("NextSequenceID"), Reference("ScratchDiskSettings"),
    Reference("VideoPreviewCompileSettings"), Reference("CustomCompileSettings"),
    Reference("StillCompileSettings"), Reference("MovieCompileSettings"),
    Reference("AudioCompileSettings"), Reference("ProjectSettings"),
    OptionalGuidReference("RootProjectItem"),
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
    Open("ProjectItemContainer", 1),
        Open("Items", 1),
            GuidList("Item", "ProjectItem"),
        Close("Items"),
    Close("ProjectItemContainer"),
    Open("ProjectItem", 1),
        Open("Node", 1),
            Value("ID"),
        Close("Node"),
        Fixed("Name", "Root Bin"),
    Close("ProjectItem"),
};

constexpr BodyRow kS51ToMonoPanProcessor[] = {
    Open("PanProcessor", 2),
        Open("AudioComponent", 2),
            Open("Component", 3),
                Fixed("Intrinsic", "false"),
                Open("Params", 1),
                    ReferenceList("Param"),
                Close("Params"),
                Fixed("Bypass", "false"), Value("ID"),
            Close("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate"), Fixed("ChannelType", "2"),
        Close("AudioComponent"),
    Close("PanProcessor"),
};

constexpr BodyRow kScratchDiskSettings[] = {
    Value("TransferMediaLocation"), Value("DVDEncodingLocation"), Value("AudioPreviewLocation"),
    Value("VideoPreviewLocation"), Value("CapturedAudioLocation"), Value("CapturedVideoLocation"),
};

constexpr BodyRow kSecondaryContent[] = {
    Reference("Content"), Value("ChannelIndex"),
};

constexpr BodyRow kSequence[] = {
    Open("Node", 1),
        Open("Properties", 1),
            PropertyList(SequenceUIPropertyList), Value("BE.Sequence.IsMergedClip"),
        Close("Properties"),
    Close("Node"),
    Open("MarkerOwner", 1),
        Reference("Markers"),
    Close("MarkerOwner"),
    Open("DVDMarkerOwner", 1),
        Reference("DVDMarkers"),
    Close("DVDMarkerOwner"),
    Open("PersistentGroupContainer", 1),
        Open("LinkContainer", 1),
            Open("Links", 1),
                ReferenceList("Link", "PersistentGroupContainer"),
            Close("Links"),
        Close("LinkContainer"),
    Close("PersistentGroupContainer"),
    Open("TrackGroups", 1),
        Pairs("TrackGroup", "mediatype"),
    Close("TrackGroups"),
    Value("ID"), Value("Name"),
};

constexpr BodyRow kStereoTo16ChannelPanProcessor[] = {
    Open("DirectPanProcessor", 2),
        Open("PanProcessor", 3),
            Open("AudioComponent", 2),
                Open("Component", 3),
                    Fixed("Intrinsic", "false"),
                    Open("Params", 1),
                        ReferenceList("Param"),
                    Close("Params"),
                    Fixed("Bypass", "false"), Value("ID"),
                Close("Component"),
                Fixed("AudioComponentType", "0"), Value("FrameRate"), Fixed("ChannelType", "1"),
            Close("AudioComponent"),
        Close("PanProcessor"),
        Fixed("InputAudioChannelLayout", kStereoSpaced),
        Fixed("OutputAudioChannelLayout", kSixteenMono), Value("Matrix"),
    Close("DirectPanProcessor"),
};

constexpr BodyRow kStereoTo51PanProcessor[] = {
    Open("PanProcessor", 2),
        Open("AudioComponent", 2),
            Open("Component", 3),
                Fixed("Intrinsic", "false"),
                Open("Params", 1),
                    ReferenceList("Param"),
                Close("Params"),
                Fixed("Bypass", "false"), Value("ID"),
            Close("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate"), Fixed("ChannelType", "1"),
        Close("AudioComponent"),
    Close("PanProcessor"),
};

constexpr BodyRow kStereoToStereoPanProcessor[] = {
    Open("PanProcessor", 3),
        Open("AudioComponent", 3),
            Open("Component", 3),
                Fixed("Intrinsic", "false"),
                Open("Params", 1),
                    ReferenceList("Param"),
                Close("Params"),
                Fixed("DisplayName", ""), Fixed("Bypass", "false"), Value("ID"),
            Close("Component"),
            Fixed("AudioComponentType", "0"), Value("FrameRate"), Fixed("ChannelType", "1"),
            Fixed("OutputAudioChannelLayout", kStereoSpaced),
        Close("AudioComponent"),
        Fixed("InputAudioChannelLayout", kStereoSpaced),
    Close("PanProcessor"),
};

constexpr BodyRow kSubClip[] = {
    Reference("Clip"), GuidReference("MasterClip"), OptionalGuidReference("MasterClip2"),
    Value("Name"), Fixed("OrigChGrp", "0"),
};

constexpr BodyRow kTimeComponentParam[] = {
    Value("Name"), Value("IsTimeVarying"), Value("IsLocked"), Value("DiscontinuousInterpolate"),
    Value("ParameterControlType"), Value("LowerBound"), Value("UpperBound"), Value("StartKeyframe"),
    Value("Keyframes"), Value("CurrentValue"), Value("RangeLocked"), Value("ParameterID"),
};

constexpr BodyRow kTimeRemapping[] = {
    Reference("Keyframes"),
};

constexpr BodyRow kVideoClip[] = {
    Include(kClipBlock), Value("ScaleToFrameSize"), Value("FieldProcessing"),
    Value("ReverseFieldDominance"), Value("DeinterlaceOnHold"), Value("HoldFilters"),
    Value("FrameHold"), Value("FrameHoldStart"), Value("PosterFrame"),
    Value("TimeInterpolationType"),
};

constexpr BodyRow kVideoClipTrack[] = {
    Open("ClipTrack", 2),
        Open("Track", 3),
            Open("Node", 1),
                Open("Properties", 1),
                    PropertyList(TrackUIPropertyList), FixedUnless("MZ.TrackTargeted", "1"),
                Close("Properties"),
            Close("Node"),
            Fixed("MediaType", kVideoMedia), Value("Index"), Value("ID"), Value("IsLocked"),
            Fixed("IsSyncLocked", "true"), Value("IsMuted"),
        Close("Track"),
        Open("ClipItems", 3),
            Open("TrackItems", 1),
                ReferenceList("TrackItem"),
            Close("TrackItems"),
        Close("ClipItems"),
        Open("TransitionItems", 3),
            ReferenceList("TransitionTrackItem"),
        Close("TransitionItems"),
    Close("ClipTrack"),
};

constexpr BodyRow kVideoClipTrackItem[] = {
    Open("ClipTrackItem", 4),
        Open("ComponentOwner", 1),
            Reference("Components"),
        Close("ComponentOwner"),
        Open("TrackItem", 3),
            Fixed("Type", "1"), Value("MediaType"), Value("TrackIndex"), Value("Start"),
            Value("End"), Fixed("TrackRefCount", "1"),
        Close("TrackItem"),
        Reference("HeadTransition"), Reference("TailTransition"), Reference("SubClip"),
        Value("IsMuted"), Fixed("GroupRefCount", "0"), Value("LinkRefCount"),
    Close("ClipTrackItem"),
    Value("FrameRect"), Value("PixelAspectRatio"),
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
    Value("SeqID"), Value("DefaultOpacity"), Value("DefaultMotion"),
    Open("ComponentChain", 2),
        Open("Components", 1),
            ReferenceList("Component"),
        Close("Components"),
        Value("NextComponentID"),
    Close("ComponentChain"),
};

constexpr BodyRow kVideoComponentParam[] = {
    Value("ParameterID"), Value("CurrentValue"), Value("RangeLocked"), Value("UpperBound"),
    Value("LowerBound"), Value("UpperUIBound"), Value("LowerUIBound"), Value("StartKeyframe"),
    Value("ParameterControlType"), Value("DiscontinuousInterpolate"), Value("IsLocked"),
    Value("IsTimeVarying"), Value("Keyframes"), Value("Name"),
};

constexpr BodyRow kVideoFilterComponent[] = {
    Value("SequenceID"), Value("VideoFilterType"), Value("MatchName"),
    Open("Component", 3),
        Open("Node", 1),
            Open("Properties", 1),
                Value("ECP.Filter.Expanded"),
            Close("Properties"),
        Close("Node"),
        Value("Intrinsic"),
        Open("Params", 1),
            ReferenceList("Param"),
        Close("Params"),
        Value("DisplayName"), Value("InstanceName"), Value("Bypass"), Value("ID"),
    Close("Component"),
    Open("PluginDependencyMap", 1),
        ReferenceList("Dependency"),
    Close("PluginDependencyMap"),
};

constexpr BodyRow kVideoMediaSource[] = {
    Open("MediaSource", 3),
        GuidReference("Media"),
        Open("Content", 7),
            Value("StartBoundary"), Value("EndBoundary"), Value("BoundariesAreHard"),
            Fixed("ProxyEnabled", "false"),
        Close("Content"),
    Close("MediaSource"),
    Value("OriginalDuration"),
};

constexpr BodyRow kVideoSettings[] = {
    Value("FrameRate"), Value("MaximumBitDepth"), Value("FrameSize"), Value("PixelAspectRatio"),
};

constexpr BodyRow kVideoStream[] = {
    Value("CodecType"), Value("FrameRate"), Value("OveriddenFrameRate"), Value("FrameRect"),
    Value("OriginalPAR"), Value("IsPAROverridden"), Value("OverriddenPAR"), Value("PARIsUncertain"),
    Value("AlphaType"), Value("IsAlphaTypeOverridden"), Value("OverriddenAlphaType"),
    Value("AlphaInfoIsUncertain"), Value("IsIgnoreAlphaOverridden"), Value("OverriddenIgnoreAlpha"),
    Value("IsInvertAlphaOverridden"), Value("OverriddenInvertAlpha"),
    Value("OriginalAlphaMatteColor"), Value("IsAlphaMatteColorOverridden"),
    Value("OverriddenAlphaMatterColor"), Value("Duration"), Value("OriginalFieldType"),
    Value("IsFieldTypeOverridden"), Value("OverriddenFieldType"), Value("FieldTypeIsUncertain"),
    Value("IsStill"), Value("IsContinuousTime"),
};

constexpr BodyRow kVideoTrackGroup[] = {
    Open("TrackGroup", 1),
        Value("NextTrackID"),
        Open("Tracks", 1),
            ReferenceList("Track"),
        Close("Tracks"),
        Value("FrameRate"),
    Close("TrackGroup"),
    Value("FrameRect"), Value("PixelAspectRatio"), Fixed("EnablePT", "true"), Value("FieldType"),
};

constexpr BodyRow kVideoTransitionTrackItem[] = {
    Value("AntiAliasQuality"), Value("Direction"), Value("Reverse"), Value("SwitchSources"),
    Value("BorderColor"), Value("BorderWidth"), Value("EndPercent"), Value("StartPercent"),
    Value("CenterPosition"), Value("EndPosition"), Value("StartPosition"),
    Open("TransitionTrackItem", 3),
        Value("HasIncomingClip"), Value("HasOutgoingClip"), Value("Alignment"),
        Open("TrackItem", 3),
            Fixed("TrackRefCount", "1"), Value("MediaType"), Value("TrackIndex"),
            Fixed("Type", "2"), Value("End"), Value("Start"),
        Close("TrackItem"),
        Value("MatchName"), Value("DisplayName"),
    Close("TransitionTrackItem"),
    Fixed("SequenceID", "1"),
};

// Links hang in a container that is a node of the tree but no object of the document.
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
     kAdaptiveDownmixPanProcessor},
    {"ArbVideoComponentParam", Identity::Number, 2, "313e54d4-6903-49ad-b0bf-8262cdd10f4e",
     kArbVideoComponentParam},
    {"AudioClip", Identity::Number, 8, "b8830d03-de02-41ee-84ec-fe566dc70cd9", kAudioClip},
    {"AudioClipTrack", Identity::Number, 6, "097f6203-99ae-11d5-84f2-8cf14bde7040",
     kAudioClipTrack},
    {"AudioClipTrackItem", Identity::Number, 6, "064ec682-9ba6-11d5-af2d-9ca32c7d6164",
     kAudioClipTrackItem},
    {"AudioCompileSettings", Identity::Number, 6, "34b10007-ab6d-49a7-bac5-7b60d919e387",
     kAudioCompileSettings},
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
    {"AudioSettings", Identity::Number, 7, "6baf5521-b132-4634-840e-13cec5bc86a4", kAudioSettings},
    {"AudioStream", Identity::Number, 6, "0b5cf52f-2b85-4863-890b-8844b64ecfe9", kAudioStream},
    {"AudioTrackGroup", Identity::Number, 6, "9b9238b9-53a8-4cc3-b03f-b36246d052e6",
     kAudioTrackGroup},
    {"AudioTrackInlet", Identity::Number, 3, "be3af080-e8c6-11d5-abc4-a1c6d5dee670",
     kAudioTrackInlet},
    {"AudioTransitionTrackItem", Identity::Number, 2, "23f687b6-9c5a-42f4-bea1-e7b3e28e7082",
     kAudioTransitionTrackItem},
    {"BinProjectItem", Identity::GuidText, 1, "dbfd6653-24da-480e-a35e-ba45e9504e4b",
     kBinProjectItem},
    {"CaptureSettings", Identity::Number, 10, "328c2aa2-47f9-4211-805b-b6a6dbd4ca29",
     kCaptureSettings},
    {"ChildClipIDSerializer", Identity::Number, 1, "4e5c7474-0c8b-4b51-908f-1f5b607dc751",
     kChildClipIDSerializer},
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
     kCompileSettings},
    {"DVDMarkers", Identity::Number, 1, "efb6b9f5-5b1c-4eaa-83ef-d6f93b0cac79", kDVDMarkers},
    {"DefaultPanProcessor", Identity::Number, 2, "33a94282-ee2c-11d5-abc4-c1cd7f9e3c10",
     kDefaultPanProcessor},
    {"DefaultSequenceSettings", Identity::Number, 2, "567bdf53-d6d9-4d61-b2f1-f4834bebea9b",
     kDefaultSequenceSettings},
    {"Dependency", Identity::Number, 1, "38999b93-d0a4-4bac-9f6d-7ca53546b263", kDependency},
    {"FileProjectItem", Identity::GuidText, 1, "B28F14FE-793F-45be-BB28-FB82644995F4",
     kFileProjectItem},
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
     kProjectSettings},
    {"RootProjectItem", Identity::GuidText, 1, "1c307a89-9318-47d7-a583-bf2553736543",
     kRootProjectItem},
    {"S51To16ChannelPanProcessor", Identity::Number, 1, "F135F697-20E3-4a36-8EE1-355DEB9EA1AE", {}},
    {"S51ToMonoPanProcessor", Identity::Number, 1, "52454002-efca-11d5-abc4-c1cf8f1e2ca0",
     kS51ToMonoPanProcessor},
    {"S51ToStereoPanProcessor", Identity::Number, 1, "52454004-efca-11d5-abc4-c1cf8f1e2ca0",
     kS51ToMonoPanProcessor},
    {"ScratchDiskSettings", Identity::Number, 2, "4c6ed82b-a81c-4df1-8bd0-750504c4b560",
     kScratchDiskSettings},
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
     kVideoCompileSettings},
    {"VideoComponentChain", Identity::Number, 1, "0970e08a-f58f-4108-b29a-1a717b8e12e2",
     kVideoComponentChain},
    {"VideoComponentParam", Identity::Number, 8, kClassIdOfNode, kVideoComponentParam},
    {"VideoFilterComponent", Identity::Number, 7, "d10da199-beea-4dd1-b941-ed3a78766d50",
     kVideoFilterComponent},
    {"VideoMediaSource", Identity::Number, 2, "e64ddf74-8fac-4682-8aa8-0e0ca2248949",
     kVideoMediaSource},
    {"VideoSequenceSource", Identity::Number, 3, "4752dfa9-7a7e-4a3b-a25b-cafde1a8d036",
     kAudioSequenceSource},
    {"VideoSettings", Identity::Number, 9, "58474264-30c4-43a2-bba5-dc0812df8a3a", kVideoSettings},
    {"VideoStream", Identity::Number, 13, "a36e4719-3ec6-4a0c-ab11-8b4aab377aa5", kVideoStream},
    {"VideoTrackGroup", Identity::Number, 8, "9e9abf7a-0918-49c2-91ae-991b5dde77bb",
     kVideoTrackGroup},
    {"VideoTransitionTrackItem", Identity::Number, 5, "3eeaed31-f78e-4144-b8e8-077656517181",
     kVideoTransitionTrackItem},
    {"LinkContainer", Identity::None, 0, {}, kLinkContainer},
};

// clang-format on

constexpr bool BlocksMatch(std::span<const BodyRow> rows)
{
    Name open[8];
    std::size_t depth = 0;
    for (const BodyRow& row : rows) {
        if (row.kind == RowKind::Open)
            open[depth++] = row.tag;
        if (row.kind == RowKind::Close && (depth == 0 || !(open[--depth] == row.tag)))
            return false;
        if (row.kind == RowKind::Include && !BlocksMatch(row.rows))
            return false;
    }
    return depth == 0;
}

constexpr bool AllBlocksMatch()
{
    for (const ProjectClass& row : kClasses)
        if (!BlocksMatch(row.body))
            return false;
    return true;
}
static_assert(AllBlocksMatch());

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

// What the reader takes of a project document; anything else in it is transparent, also many of
// the elements that wrap others (`Node` in a clip, track or sequence, `TransitionItems`).
//
// The document is a flat list of objects under `VelaData`. A class nests the parts of its bases as
// elements of their own; other objects are named by reference.
#include "project/grammar.h"

#include "core/host_properties.h"
#include "tree/reading_table.h"

namespace XPJ {

namespace {

// clang-format off
constexpr RuleRow kRules[] = {
    // rule, tag, items, children, references
    {"root", "root", "", "VelaData", ""},

    // Every kind of object that may stand at the top.
    {"VelaData", "VelaData", "",
     "AdaptiveDownmixPanProcessor AdaptiveToAdaptivePanProcessor AdaptiveToStereoPanProcessor "
     "ArbVideoComponentParam AudioClip AudioClipTrackItem AudioClipTrack AudioComponentChain "
     "AudioComponentParam AudioFader AudioFilterComponent AudioMediaSource AudioMeter "
     "AudioSequenceSource AudioStream AudioTrackGroup AudioTransitionTrackItem BinProjectItem "
     "CaptioningStream ClipChannelGroupVectorSerializer ClipChannelItem "
     "ClipChannelVectorSerializer ClipProjectItem DefaultPanProcessor Dependency Link "
     "LoggingInfo Marker Markers MasterClip MasterTrack Media MonoTo16ChannelPanProcessor "
     "MonoTo51PanProcessor MonoToStereoPanProcessor PointComponentParam PreviewMediaSerializer "
     "Project RootProjectItem S51To16ChannelPanProcessor S51ToMonoPanProcessor "
     "S51ToStereoPanProcessor SecondaryContentItem Sequence StereoTo16ChannelPanProcessor "
     "StereoTo51PanProcessor StereoToMonoPanProcessor StereoToStereoPanProcessor SubClip "
     "TimeComponentParam TimeRemapping VideoClip VideoClipTrackItem VideoClipTrack "
     "VideoComponentChain VideoComponentParam VideoFilterComponent VideoMediaSource "
     "VideoSequenceSource VideoStream VideoTrackGroup VideoTransitionTrackItem",
     ""},

    {"AdaptiveDownmixPanProcessor", "AdaptiveDownmixPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout ChannelType",
     "PanProcessor", ""},
    {"AdaptiveToAdaptivePanProcessor", "AdaptiveToAdaptivePanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"AdaptiveToStereoPanProcessor", "AdaptiveToStereoPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"ArbVideoComponentParam", "ArbVideoComponentParam",
     "Name ParameterID ParameterControlType StartKeyframePosition IsTimeVarying",
     "StartKeyframeValue", ""},
    {"AudioClip", "AudioClip", "Gain SecondaryIndex", "Clip SecondaryContents", ""},
    {"AudioClipTrackItem", "AudioClipTrackItem", "", "ClipTrackItem", "Panner"},
    {"AudioClipTrack", "AudioClipTrack", "TrackIndex", "AudioTrack ClipTrack", ""},
    {"AudioComponentChain", "AudioComponentChain", "FrameRate", "ComponentChain", ""},
    {"AudioComponentParam", "AudioComponentParam",
     "CurrentValue StartKeyframe Keyframes Name IsInverted",
     "", ""},
    {"AudioComponent", "AudioComponent", "", "Component", ""},
    {"AudioFader", "AudioFader", "", "AudioComponent", ""},
    {"AudioFilterComponent", "AudioFilterComponent", "FilterMatchName", "AudioComponent", ""},
    {"AudioMediaSource", "AudioMediaSource", "OriginalDuration", "MediaSource", ""},
    {"AudioMeter", "AudioMeter", "", "", ""},
    {"AudioSequenceSource", "AudioSequenceSource", "OriginalDuration", "SequenceSource", ""},
    {"AudioStream", "AudioStream", "Duration FrameRate", "", ""},
    {"AudioTrackGroup", "AudioTrackGroup", "NumAdaptiveChannels", "TrackGroup", "MasterTrack"},
    {"AudioTrack", "AudioTrack", "ChannelType", "ComponentOwner", "Panner"},
    {"AudioTransitionTrackItem", "AudioTransitionTrackItem", "", "TransitionTrackItem", ""},
    {"BinProjectItem", "BinProjectItem", "", "ProjectItemContainer ProjectItem", ""},
    {"CaptioningStream", "CaptioningStream", "", "", ""},
    {"ClipChannelGroupVectorSerializer", "ClipChannelGroupVectorSerializer",
     "",
     "ClipChannelVectors", ""},
    {"ClipChannelItem", "ClipChannelSerializer", "mSourceChannelIndex SourceClipIndex", "", ""},
    {"ClipChannelVectorSerializer", "ClipChannelVectorSerializer",
     "ChannelType",
     "ClipChannels", ""},
    {"ClipChannelVectors", "ClipChannelVectors", "", "", "ClipChannelVectorItem"},
    {"ClipChannels", "ClipChannels", "", "", "ClipChannelItem"},
    {"ClipItems", "ClipItems", "", "TrackItems", ""},
    {"ClipProjectItem", "ClipProjectItem", "", "ProjectItem", "MasterClip"},
    {"Clip", "Clip",
     "FrameRate InPoint OutPoint PlaybackSpeed PlayBackwards SelectedTrackIndex IsMulticam",
     "Properties MarkerOwner", "Source TimeRemapping"},
    {"ClipTrackItem", "ClipTrackItem",
     "IsMuted",
     "ComponentOwner TrackItem", "HeadTransition SubClip TailTransition"},
    {"ClipTrack", "ClipTrack", "TrackIndex", "Track ClipItems", ""},
    {"Clips", "Clips", "", "", "Clip"},
    {"ComponentChain", "ComponentChain", "", "Components", ""},
    {"ComponentOwner", "ComponentOwner", "", "", "Components"},
    {"Component", "Component", "DisplayName InstanceName Bypass", "Params Node", ""},
    {"Components", "Components", "", "", "Component"},
    {"Content", "Content", "EndBoundary StartBoundary BoundariesAreHard", "", ""},
    {"DefaultPanProcessor", "DefaultPanProcessor",
     "DefaultPannerOutputChannelType DefaultPannerInputChannelType InputAudioChannelLayout "
     "OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"Dependency", "Dependency", "Tag Path", "", ""},
    {"DirectPanProcessor", "DirectPanProcessor",
     "NumInputChannels AssignedChannel0 AssignedChannel1 AssignedChannel2 AssignedChannel3 "
     "AssignedChannel4 AssignedChannel5 AssignedChannel6 AssignedChannel7 AssignedChannel8 "
     "AssignedChannel9 AssignedChannel10 AssignedChannel11 AssignedChannel12 AssignedChannel13 "
     "AssignedChannel14 AssignedChannel15 AssignedChannel16 AssignedChannel17 AssignedChannel18 "
     "AssignedChannel19 AssignedChannel20 AssignedChannel21 AssignedChannel22 AssignedChannel23 "
     "InputAudioChannelLayout OutputAudioChannelLayout Matrix",
     "PanProcessor", ""},
    {"LinkContainer", "LinkContainer", "", "Links", ""},
    {"Link", "Link", "", "TrackItemGroup", ""},
    {"Links", "Links", "", "", "Link"},
    {"LoggingInfo", "ClipLoggingInfo",
     "Description LogNote Scene ShotTake TapeName TimecodeFormat MediaInPoint SoundRoll "
     "SoundTimeCode "
     "FilmCameraRoll FilmDailyRoll FilmLabRoll FilmKeycodeFeetFrames FilmKeycodePerfoffset "
     "FilmKeycodePrefix FilmKeycodeReversed",
     "", ""},
    {"MarkerListItem", "Marker", "First", "", "Second"},
    {"MarkerOwner", "MarkerOwner", "", "", "Markers"},
    {"Marker", "Marker", "HULMarker Comments Name ML.Marker.TextName Time Duration", "", ""},
    {"MarkersList", "Markers", "", "MarkerListItem", ""},
    {"Markers", "Markers", "", "MarkersList", ""},
    {"MasterClip", "MasterClip",
     "Name",
     "Clips", "LoggingInfo AudioComponentChain VideoComponentChain AudioClipChannelGroups"},
    {"MasterTrack", "AudioMixTrack", "", "AudioTrack", ""},
    {"MediaSource", "MediaSource", "", "Content", "Media"},
    {"Media", "Media",
     "ActualMediaFilePath FilePath ImporterPrefs Infinite AlternateStart UseAlternateStart Start "
     "Title StreamNumber",
     "", "AudioStream VideoStream"},
    {"MonoTo16ChannelPanProcessor", "MonoTo16ChannelPanProcessor", "", "DirectPanProcessor", ""},
    {"MonoTo51PanProcessor", "MonoTo51PanProcessor",
     "EnableDirectAssignmentMode",
     "DirectPanProcessor", ""},
    {"MonoToStereoPanProcessor", "MonoToStereoPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"Node", "Node", "", "Properties", ""},
    {"PanProcessor", "PanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "AudioComponent", ""},
    {"Params", "Params", "", "", "Param"},
    {"PersistentGroupContainer", "PersistentGroupContainer", "", "LinkContainer", ""},
    {"PluginDependencyMap", "PluginDependencyMap", "", "", "Dependency"},
    {"PointComponentParam", "PointComponentParam",
     "CurrentValue Name ParameterID StartKeyframe Keyframes IsTimeVarying",
     "", ""},
    {"PreviewMediaSerializer", "PreviewMediaSerializer", "", "", ""},
    {"ProjectItemContainer", "ProjectItemContainer", "", "ProjectItems", ""},
    {"ProjectItem", "ProjectItem", "Name", "Node", ""},
    {"ProjectItems", "Items", "", "", "Item"},
    {"Project", "Project", "", "", "RootProjectItem"},
    {"RootProjectItem", "RootProjectItem", "", "ProjectItemContainer", ""},
    {"S51To16ChannelPanProcessor", "S51To16ChannelPanProcessor", "", "DirectPanProcessor", ""},
    {"S51ToMonoPanProcessor", "S51ToMonoPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"S51ToStereoPanProcessor", "S51ToStereoPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"SecondaryContentItem", "SecondaryContent", "ChannelIndex", "", "Content"},
    {"SecondaryContents", "SecondaryContents", "", "", "SecondaryContentItem"},
    {"SequenceSource", "SequenceSource", "", "", "Sequence"},
    {"Sequence", "Sequence",
     "BE.Sequence.IsMergedClip Name",
     "Properties MarkerOwner PersistentGroupContainer TrackGroups", ""},
    {"StartKeyframeValue", "StartKeyframeValue", "", "", ""},
    {"StereoTo16ChannelPanProcessor", "StereoTo16ChannelPanProcessor",
     "",
     "DirectPanProcessor", ""},
    {"StereoTo51PanProcessor", "StereoTo51PanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"StereoToMonoPanProcessor", "StereoToMonoPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"StereoToStereoPanProcessor", "StereoToStereoPanProcessor",
     "InputAudioChannelLayout OutputAudioChannelLayout",
     "PanProcessor", ""},
    {"SubClip", "SubClip", "Name", "", "Clip MasterClip"},
    {"TimeComponentParam", "TimeComponentParam", "Keyframes", "", ""},
    {"TimeRemapping", "TimeRemapping", "", "Node", "Keyframes"},
    {"TrackGroup", "TrackGroup", "FrameRate", "Tracks", ""},
    {"TrackGroups", "TrackGroups", "", "TrackGroupsTrackGroup", ""},
    {"TrackGroupsTrackGroup", "TrackGroup", "First", "", "Second"},
    {"TrackItemGroup", "TrackItemGroup", "", "TrackItems", ""},
    {"TrackItem", "TrackItem", "Start End", "", ""},
    {"TrackItems", "TrackItems", "", "", "TrackItem"},
    {"Track", "Track", "IsLocked IsMuted Index", "Properties", ""},
    {"Tracks", "Tracks", "", "", "Track"},
    {"TransitionTrackItem", "TransitionTrackItem",
     "Alignment HasIncomingClip HasOutgoingClip MatchName DisplayName",
     "TrackItem", ""},
    {"VideoClip", "VideoClip", "ScaleToFrameSize TimeInterpolationType", "Clip", ""},
    {"VideoClipTrackItem", "VideoClipTrackItem", "PixelAspectRatio", "ClipTrackItem", ""},
    {"VideoClipTrack", "VideoClipTrack", "", "ClipTrack", ""},
    {"VideoComponentChain", "VideoComponentChain", "", "ComponentChain", ""},
    {"VideoComponentParam", "VideoComponentParam",
     "CurrentValue Name ParameterID StartKeyframe Keyframes LowerBound UpperBound LowerUIBound "
     "UpperUIBound ParameterControlType IsTimeVarying",
     "", ""},
    {"VideoFilterComponent", "VideoFilterComponent",
     "MatchName",
     "Component PluginDependencyMap", ""},
    {"VideoMediaSource", "VideoMediaSource", "OriginalDuration", "MediaSource", ""},
    {"VideoSequenceSource", "VideoSequenceSource", "OriginalDuration", "SequenceSource", ""},
    {"VideoStream", "VideoStream",
     "Duration FrameRate FrameRect IsStill OriginalFieldType OriginalPAR IsPAROverridden "
     "OverriddenPAR IsIgnoreAlphaOverridden OverriddenIgnoreAlpha IsAlphaTypeOverridden "
     "OverriddenAlphaType AlphaType IsInvertAlphaOverridden OverriddenInvertAlpha "
     "IsAlphaMatteColorOverridden OverriddenAlphaMatterColor OriginalAlphaMatteColor",
     "", ""},
    {"VideoTrackGroup", "VideoTrackGroup",
     "FieldType FrameRect PixelAspectRatio",
     "TrackGroup", ""},
    {"VideoTransitionTrackItem", "VideoTransitionTrackItem",
     "Direction Reverse BorderColor BorderWidth EndPercent StartPercent",
     "TransitionTrackItem", ""},
    {"Properties", "Properties",
     "hfl.clip.label.name ECP.Filter.Expanded BE.Sequence.IsMergedClip",
     "", ""},
};
// clang-format on

ReadingTable MakeGrammar()
{
    ReadingTable grammar(kRules);
    grammar.AddItems("Properties", TrackUIPropertyList());
    grammar.AddItems("Properties", SequenceUIPropertyList());
    grammar.AddItems("Properties", ColumnPropertyList());
    grammar.AddAttributes("VelaData", "Version");
    grammar.KeepText("StartKeyframeValue", "value");
    return grammar;
}

} // namespace

const ReadingTable& ProjectReadingTable()
{
    static const ReadingTable grammar = MakeGrammar();
    return grammar;
}

} // namespace XPJ

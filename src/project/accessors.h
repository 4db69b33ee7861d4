// Where things are in a project tree as the reader gives it. No other code walks these chains.
//
// A project class nests the parts of its bases as nodes of their own (VideoClip / Clip), and
// reference children are entered under the tag of the reference, whatever their own class: the
// `Clip` of a list is a VideoClip or an AudioClip. "Core" names the part that both types of a thing
// share. Every accessor takes a null handle, and gives null, empty or an empty range for what isn't
// there. All of them only read.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// ---- Nodes that many functions are given together, and that must not be mixed up

// What the browser shows of media or of a sequence.
struct MasterClip : ConstHandle {
    MasterClip() = default;
    explicit MasterClip(ConstHandle node) : ConstHandle(node) {}
};

// A VideoClipTrackItem or an AudioClipTrackItem.
struct TrackItem : ConstHandle {
    TrackItem() = default;
    explicit TrackItem(ConstHandle node) : ConstHandle(node) {}
};

// A media file, or what the host generates in place of one.
struct Media : ConstHandle {
    Media() = default;
    explicit Media(ConstHandle node) : ConstHandle(node) {}
};

// False for a frame length that no project can mean: 0 or less, or the largest number, which states
// that there is none.
bool IsRate(Ticks frameTicks);

// ---- Browser

// The list of a root item or a bin; its children are ClipProjectItems, BinProjectItems and others.
ConstHandle ItemList(ConstHandle item);
// Name of a bin or clip item.
std::string_view ItemName(ConstHandle item);
// Columns of a bin or clip item: label, comments.
ConstHandle ItemProperties(ConstHandle item);
MasterClip MasterOfItem(ConstHandle clipItem);
// The GUID text by which a project refers to an object.
std::string_view ObjectGuid(ConstHandle object);

// ---- Master clips

// Each a VideoClip or an AudioClip.
ConstChildRange ClipsOfMaster(MasterClip masterClip);
ConstHandle FirstVideoClip(MasterClip masterClip);
ConstHandle FirstAudioClip(MasterClip masterClip);
// The first VideoClip, else the first AudioClip.
ConstHandle MainClip(MasterClip masterClip);
// The Sequence of the first clip that shows one; null for a master of media.
ConstHandle SequenceOfMaster(MasterClip masterClip);
ConstHandle LoggingInfoOf(MasterClip masterClip);
// The ClipChannelVectorSerializers, each with `ChannelType`.
ConstChildRange ChannelVectorsOf(MasterClip masterClip);
// The ClipChannelSerializers of one, each with `mSourceChannelIndex` and `SourceClipIndex`.
ConstChildRange ChannelsOfVector(ConstHandle vector);
// Component chains of the effects that belong to the media; see ComponentsOf.
ConstHandle VideoChainOfMaster(MasterClip masterClip);
ConstHandle AudioChainOfMaster(MasterClip masterClip);
// The Media of the first AudioClip that has one.
Media AudioMediaOfMaster(MasterClip masterClip);

// ---- Clips. A VideoClip itself carries `ScaleToFrameSize` and `TimeInterpolationType`, an
// ---- AudioClip `Gain` and `SecondaryIndex`.

bool IsVideoClip(ConstHandle clip);
bool IsAudioClip(ConstHandle clip);
// `FrameRate`, `InPoint`, `OutPoint`, `PlaybackSpeed`, `PlayBackwards`, `IsMulticam`,
// `SelectedTrackIndex`; owner of markers.
ConstHandle ClipCore(ConstHandle clip);
// The label "hfl.clip.label.name".
ConstHandle ClipProperties(ConstHandle clip);
// A media or sequence source, with `OriginalDuration`; of a clip, of its core.
ConstHandle SourceOfClip(ConstHandle clip);
ConstHandle SourceOfCore(ConstHandle core);
// Each with `ChannelIndex`; what a channel of an AudioClip plays.
ConstChildRange SecondaryContentsOf(ConstHandle audioClip);
// The source of such a channel.
ConstHandle SourceOfContent(ConstHandle secondaryContent);
bool HasTimeRemapping(ConstHandle clip);
// The `Keyframes` text of a time remapping; empty without one.
std::string_view SpeedKeyframesOf(ConstHandle clip);

// ---- Sources

Media MediaOfSource(ConstHandle source);
// Of a Media. A VideoStream may be of the class CaptioningStream.
ConstHandle VideoStreamOf(Media media);
ConstHandle AudioStreamOf(Media media);
// `StartBoundary`, `EndBoundary`, `BoundariesAreHard` of a media source.
ConstHandle BoundariesOfSource(ConstHandle source);
ConstHandle SequenceOfSource(ConstHandle source);

// ---- Sequences

// UI state, `MZ.ZeroPoint`, "MZ.Sequence.VideoTimeDisplayFormat".
ConstHandle SequenceProperties(ConstHandle sequence);
// "BE.Sequence.IsMergedClip", on the sequence itself or among its properties.
bool IsMergedSequence(ConstHandle sequence);
bool HasTrackGroups(ConstHandle sequence);
// Entries of the group list: a media type each and, by GroupOfEntry, the group.
ConstChildRange GroupEntriesOf(ConstHandle sequence);
bool IsGroupEntryOf(ConstHandle entry, MediaType type);
// A VideoTrackGroup (`FrameRect`, `PixelAspectRatio`, `FieldType`) or an AudioTrackGroup
// (`NumAdaptiveChannels`).
ConstHandle GroupOfEntry(ConstHandle entry);
// The first group of a type.
ConstHandle GroupOfKind(ConstHandle sequence, MediaType type);
// Ticks a frame or a sample; 0 if the group states none.
Ticks RateOfGroup(ConstHandle group);
ConstChildRange TracksOf(ConstHandle group);
// The AudioTrack of an audio group's master track; owner of components.
ConstHandle MasterAudioTrackOf(ConstHandle group);
// Link groups, and the track items of one.
ConstChildRange LinksOf(ConstHandle sequence);
ConstChildRange LinkedItemsOf(ConstHandle link);

// ---- Tracks

// `IsLocked`, `IsMuted`.
ConstHandle TrackCore(ConstHandle track);
ConstHandle TrackProperties(ConstHandle track);
// Each a VideoClipTrackItem or an AudioClipTrackItem.
ConstChildRange TrackItemsOf(ConstHandle track);
// `ChannelType` of an audio track; owner of components and of a panner.
ConstHandle AudioTrackOf(ConstHandle track);

// ---- Track items

// `IsMuted`; owner of components.
ConstHandle ItemCore(TrackItem item);
// `Start` and `End`.
ConstHandle ItemEdges(TrackItem item);
// `Name`.
ConstHandle SubClipOf(TrackItem item);
ConstHandle ClipOfSubClip(ConstHandle subClip);
MasterClip MasterOfSubClip(ConstHandle subClip);
ConstHandle HeadTransitionOf(TrackItem item);
ConstHandle TailTransitionOf(TrackItem item);

// ---- Transitions. `Direction`, `Reverse`, `BorderColor`, `BorderWidth`, `StartPercent` and
// ---- `EndPercent` are properties of a video transition itself.

// `Alignment`, `HasIncomingClip`, `HasOutgoingClip`, `MatchName`, `DisplayName`.
ConstHandle TransitionCore(ConstHandle transition);
// `Start` and `End`.
ConstHandle TransitionEdges(ConstHandle transition);

// ---- Effects

// The chain of an owner (ItemCore, AudioTrackOf, MasterAudioTrackOf); an AudioComponentChain has a
// `FrameRate`.
ConstHandle ChainOfOwner(ConstHandle owner);
ConstChildRange ComponentsOf(ConstHandle chain);
// `MatchName` of a video effect, `FilterMatchName` of an audio effect.
std::string_view ComponentMatchName(ConstHandle component);
// `DisplayName`, `InstanceName`, `Bypass`.
ConstHandle ComponentCore(ConstHandle component);
// The node that holds the params, and each of them.
ConstHandle ParamListOf(ConstHandle component);
ConstChildRange ParamsOf(ConstHandle component);
// `ECP.Filter.Expanded`.
ConstHandle ComponentProperties(ConstHandle component);
// Each with `Tag` and `Path`.
ConstChildRange DependenciesOf(ConstHandle component);
// A param of the fader of a track (AudioTrackOf) or of a group's master track; null without one.
//   FaderParam(AudioTrackOf(track), "Mute")
ConstHandle FaderParam(ConstHandle audioTrack, std::string_view name);

// ---- Panners, of an AudioClipTrackItem and of AudioTrackOf a track

// `NumInputChannels`, `AssignedChannel0` and on, `Matrix`; null for a panner of another kind.
ConstHandle DirectPanProcessorOf(ConstHandle owner);
// The processor's audio component; its params are ParamsOf.
ConstHandle PanProcessorOf(ConstHandle owner);

// ---- Markers

// Entries of a marker list; the owner is a sequence or a ClipCore.
ConstChildRange MarkerEntriesOf(ConstHandle owner);
// The host's record of a marker, a JSON text.
std::string_view MarkerRecordOf(ConstHandle entry);

} // namespace XPJ

// Where things are in a project tree as the reader gives it. No other code walks these chains.
//
// A project class nests the parts of its bases as nodes of their own (VideoClip / Clip), and
// reference children are entered under the tag of the reference, whatever their own class: the
// `Clip` of a list is a VideoClip or an AudioClip. "Core" names the part that both kinds of a thing
// share. Every accessor takes a null handle, and gives null, empty or an empty range for what isn't
// there.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// ---- Browser

// The list of a root item or a bin; its children are ClipProjectItems, BinProjectItems and others.
ObjectHandle ItemList(ObjectHandle item);
// Name of a bin or clip item.
std::string_view ItemName(ObjectHandle item);
// Columns of a bin or clip item: label, comments.
ObjectHandle ItemProperties(ObjectHandle item);
ObjectHandle MasterOfItem(ObjectHandle clipItem);
// The GUID text by which a project refers to an object.
std::string_view ObjectGuid(ObjectHandle object);

// ---- Master clips

// Each a VideoClip or an AudioClip.
ChildRange ClipsOfMaster(ObjectHandle masterClip);
ObjectHandle FirstVideoClip(ObjectHandle masterClip);
ObjectHandle FirstAudioClip(ObjectHandle masterClip);
// The first VideoClip, else the first AudioClip.
ObjectHandle MainClip(ObjectHandle masterClip);
// The Sequence of the first clip that shows one; null for a master of media.
ObjectHandle SequenceOfMaster(ObjectHandle masterClip);
ObjectHandle LoggingInfoOf(ObjectHandle masterClip);
// The ClipChannelVectorSerializers, each with `ChannelType`.
ChildRange ChannelVectorsOf(ObjectHandle masterClip);
// The ClipChannelSerializers of one, each with `mSourceChannelIndex` and `SourceClipIndex`.
ChildRange ChannelsOfVector(ObjectHandle vector);
// Component chains of the effects that belong to the media; see ComponentsOf.
ObjectHandle VideoChainOfMaster(ObjectHandle masterClip);
ObjectHandle AudioChainOfMaster(ObjectHandle masterClip);

// ---- Clips. A VideoClip itself carries `ScaleToFrameSize` and `TimeInterpolationType`, an
// ---- AudioClip `Gain` and `SecondaryIndex`.

bool IsVideoClip(ObjectHandle clip);
bool IsAudioClip(ObjectHandle clip);
// `FrameRate`, `InPoint`, `OutPoint`, `PlaybackSpeed`, `PlayBackwards`, `IsMulticam`,
// `SelectedTrackIndex`; owner of markers.
ObjectHandle ClipCore(ObjectHandle clip);
// The label "hfl.clip.label.name".
ObjectHandle ClipProperties(ObjectHandle clip);
// A media or sequence source, with `OriginalDuration`; of a clip, of its core.
ObjectHandle SourceOfClip(ObjectHandle clip);
ObjectHandle SourceOfCore(ObjectHandle core);
// Each with `ChannelIndex`; what a channel of an AudioClip plays.
ChildRange SecondaryContentsOf(ObjectHandle audioClip);
// The source of such a channel.
ObjectHandle SourceOfContent(ObjectHandle secondaryContent);
bool HasTimeRemapping(ObjectHandle clip);
// The `Keyframes` text of a time remapping; empty without one.
std::string_view SpeedKeyframesOf(ObjectHandle clip);

// ---- Sources

ObjectHandle MediaOfSource(ObjectHandle source);
// Of a Media. A VideoStream may be of the class CaptioningStream.
ObjectHandle VideoStreamOf(ObjectHandle media);
ObjectHandle AudioStreamOf(ObjectHandle media);
// `StartBoundary`, `EndBoundary`, `BoundariesAreHard` of a media source.
ObjectHandle BoundariesOfSource(ObjectHandle source);
ObjectHandle SequenceOfSource(ObjectHandle source);

// ---- Sequences

// UI state, `MZ.ZeroPoint`, "MZ.Sequence.VideoTimeDisplayFormat".
ObjectHandle SequenceProperties(ObjectHandle sequence);
// "BE.Sequence.IsMergedClip", on the sequence itself or among its properties.
bool IsMergedSequence(ObjectHandle sequence);
bool HasTrackGroups(ObjectHandle sequence);
// Entries of the group list: a media type each and, by GroupOfEntry, the group.
ChildRange GroupEntriesOf(ObjectHandle sequence);
bool IsGroupEntryOf(ObjectHandle entry, MediaType kind);
// A VideoTrackGroup (`FrameRect`, `PixelAspectRatio`, `FieldType`) or an AudioTrackGroup
// (`NumAdaptiveChannels`).
ObjectHandle GroupOfEntry(ObjectHandle entry);
// The first group of a kind.
ObjectHandle GroupOfKind(ObjectHandle sequence, MediaType kind);
// Ticks a frame or a sample; 0 if the group states none.
Ticks RateOfGroup(ObjectHandle group);
ChildRange TracksOf(ObjectHandle group);
// The AudioTrack of an audio group's master track; owner of components.
ObjectHandle MasterAudioTrackOf(ObjectHandle group);
// Link groups, and the track items of one.
ChildRange LinksOf(ObjectHandle sequence);
ChildRange LinkedItemsOf(ObjectHandle link);

// ---- Tracks

// `IsLocked`, `IsMuted`.
ObjectHandle TrackCore(ObjectHandle track);
ObjectHandle TrackProperties(ObjectHandle track);
// Each a VideoClipTrackItem or an AudioClipTrackItem.
ChildRange TrackItemsOf(ObjectHandle track);
// `ChannelType` of an audio track; owner of components and of a panner.
ObjectHandle AudioTrackOf(ObjectHandle track);

// ---- Track items

// `IsMuted`; owner of components.
ObjectHandle ItemCore(ObjectHandle item);
// `Start` and `End`.
ObjectHandle ItemEdges(ObjectHandle item);
// `Name`.
ObjectHandle SubClipOf(ObjectHandle item);
ObjectHandle ClipOfSubClip(ObjectHandle subClip);
ObjectHandle MasterOfSubClip(ObjectHandle subClip);
ObjectHandle HeadTransitionOf(ObjectHandle item);
ObjectHandle TailTransitionOf(ObjectHandle item);

// ---- Transitions. `Direction`, `Reverse`, `BorderColor`, `BorderWidth`, `StartPercent` and
// ---- `EndPercent` are properties of a video transition itself.

// `Alignment`, `HasIncomingClip`, `HasOutgoingClip`, `MatchName`, `DisplayName`.
ObjectHandle TransitionCore(ObjectHandle transition);
// `Start` and `End`.
ObjectHandle TransitionEdges(ObjectHandle transition);

// ---- Effects

// The chain of an owner (ItemCore, AudioTrackOf, MasterAudioTrackOf); an AudioComponentChain has a
// `FrameRate`.
ObjectHandle ChainOfOwner(ObjectHandle owner);
ChildRange ComponentsOf(ObjectHandle chain);
// `MatchName` of a video effect, `FilterMatchName` of an audio effect.
std::string_view ComponentMatchName(ObjectHandle component);
// `DisplayName`, `InstanceName`, `Bypass`.
ObjectHandle ComponentCore(ObjectHandle component);
// The node that holds the params, and each of them.
ObjectHandle ParamListOf(ObjectHandle component);
ChildRange ParamsOf(ObjectHandle component);
// `ECP.Filter.Expanded`.
ObjectHandle ComponentProperties(ObjectHandle component);
// Each with `Tag` and `Path`.
ChildRange DependenciesOf(ObjectHandle component);

// ---- Panners, of an AudioClipTrackItem and of AudioTrackOf a track

// `NumInputChannels`, `AssignedChannel0` and on, `Matrix`; null for a panner of another kind.
ObjectHandle DirectPanProcessorOf(ObjectHandle owner);
// The processor's audio component; its params are ParamsOf.
ObjectHandle PanProcessorOf(ObjectHandle owner);

// ---- Markers

// Entries of a marker list; the owner is a sequence or a ClipCore.
ChildRange MarkerEntriesOf(ObjectHandle owner);
// The host's record of a marker, a JSON text.
std::string_view MarkerRecordOf(ObjectHandle entry);

} // namespace XPJ

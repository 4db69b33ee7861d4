// What the objects of a project refer to, whether it was read or has just been made. Export and
// inspection follow references only through these functions.
//
// An object is one node: the fields and references of the parts of its bases are its own. Reference
// children are entered under the tag of the reference, whatever their own class: the `Clip` of a
// list is a VideoClip or an AudioClip. Every accessor takes a null handle, and gives null, empty or
// an empty range for what isn't there. All of them only read.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "project/master_clip.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// ---- Nodes that, like a MasterClip, many functions are given and must not mix up

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

// ---- Browser. Bin and clip items have a `Name` and the columns of the browser: label, comments.

// Of the root item or a bin: ClipProjectItems, BinProjectItems and others. A bin has no other
// children.
ConstChildRange ItemsOf(ConstHandle bin);
MasterClip MasterOfItem(ConstHandle clipItem);
// The GUID text by which a project refers to an object.
std::string_view ObjectGuid(ConstHandle object);

// ---- Master clips; see also project/master_clip.h

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

// ---- Clips. `FrameRate`, `InPoint`, `OutPoint`, `PlaybackSpeed`, `PlayBackwards`, `IsMulticam`,
// ---- the label "hfl.clip.label.name"; of a VideoClip `ScaleToFrameSize` and
// ---- `TimeInterpolationType`, of an AudioClip `Gain` and `SecondaryIndex`. Owners of markers.

bool IsVideoClip(ConstHandle clip);
bool IsAudioClip(ConstHandle clip);
// False for one of a damaged document that states neither a source nor times.
bool IsClip(ConstHandle clip);
// A media or sequence source.
ConstHandle SourceOfClip(ConstHandle clip);
// Each with `ChannelIndex`; what a channel of an AudioClip plays.
ConstChildRange SecondaryContentsOf(ConstHandle audioClip);
// The source of such a channel.
ConstHandle SourceOfContent(ConstHandle secondaryContent);
bool HasTimeRemapping(ConstHandle clip);
// The `Keyframes` text of a time remapping; empty without one.
std::string_view SpeedKeyframesOf(ConstHandle clip);

// ---- Sources. `OriginalDuration`; of media `StartBoundary`, `EndBoundary`, `BoundariesAreHard`.

Media MediaOfSource(ConstHandle source);
// Of a Media. A VideoStream may be of the class CaptioningStream.
ConstHandle VideoStreamOf(Media media);
ConstHandle AudioStreamOf(Media media);
ConstHandle SequenceOfSource(ConstHandle source);

// ---- Sequences. UI state, `MZ.ZeroPoint`, "MZ.Sequence.VideoTimeDisplayFormat". Owners of
// markers.

bool IsMergedSequence(ConstHandle sequence);
// VideoTrackGroups (`FrameRect`, `PixelAspectRatio`, `FieldType`), AudioTrackGroups
// (`NumAdaptiveChannels`) and others. `FrameRate` is in ticks a frame or a sample.
ConstChildRange TrackGroupsOf(ConstHandle sequence);
// True also for a sequence whose document states that it has none.
bool HasTrackGroups(ConstHandle sequence);
bool IsGroupOf(ConstHandle group, MediaType type);
// The first group of a type.
ConstHandle GroupOfKind(ConstHandle sequence, MediaType type);
ConstChildRange TracksOf(ConstHandle group);
// The master track of an audio group; null for one that states nothing.
ConstHandle MasterTrackOf(ConstHandle group);
// Link groups, and the track items of one.
ConstChildRange LinksOf(ConstHandle sequence);
ConstChildRange LinkedItemsOf(ConstHandle link);

// ---- Tracks. `IsLocked`, `IsMuted`, `MZ.TrackName`; `ChannelType` of an audio track, the owner of
// ---- components and of a panner.

// Each a VideoClipTrackItem or an AudioClipTrackItem.
ConstChildRange TrackItemsOf(ConstHandle track);

// ---- Track items. `Start`, `End`, `IsMuted`. Owners of components, of audio also of a panner.

// `Name`.
ConstHandle SubClipOf(TrackItem item);
ConstHandle ClipOfSubClip(ConstHandle subClip);
MasterClip MasterOfSubClip(ConstHandle subClip);
ConstHandle HeadTransitionOf(TrackItem item);
ConstHandle TailTransitionOf(TrackItem item);

// ---- Transitions. `Start`, `End`, `Alignment`, `HasIncomingClip`, `HasOutgoingClip`, `MatchName`,
// ---- `DisplayName`; of video also `Direction`, `Reverse`, `BorderColor`, `BorderWidth`,
// ---- `StartPercent` and `EndPercent`.

// False for one of a damaged document that states neither times nor what it joins.
bool IsTransition(ConstHandle transition);

// ---- Effects

// The chain of a track item or of an audio track; an AudioComponentChain has a `FrameRate`.
ConstHandle ChainOfOwner(ConstHandle owner);
// Each with `DisplayName`, `InstanceName`, `Bypass`, `ECP.Filter.Expanded`.
ConstChildRange ComponentsOf(ConstHandle chain);
// `MatchName` of a video effect, `FilterMatchName` of an audio effect.
std::string_view ComponentMatchName(ConstHandle component);
// Of a component or a panner.
ConstChildRange ParamsOf(ConstHandle component);
// Each with `Tag` and `Path`.
ConstChildRange DependenciesOf(ConstHandle component);
// A param of the fader of an audio track; null without one.
//   FaderParam(track, "Mute")
ConstHandle FaderParam(ConstHandle audioTrack, std::string_view name);
// Of a track item or an audio track.
ConstHandle PannerOf(ConstHandle owner);
// True for a panner that assigns the channels of a track to outputs one by one:
// `NumInputChannels`, `AssignedChannel0` and on, or `Matrix`, or nothing of these in a document.
bool AssignsChannels(ConstHandle panner);

// ---- Markers

// Of a sequence or a clip.
ConstChildRange MarkersOf(ConstHandle owner);
// The host's record of a marker that was read, a JSON text.
std::string_view MarkerRecordOf(ConstHandle marker);

} // namespace XPJ

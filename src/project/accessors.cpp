#include "project/accessors.h"

#include "core/text.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

namespace XPJ {

namespace {

bool HasAny(ConstHandle node, std::initializer_list<Name> keys)
{
    return std::any_of(keys.begin(), keys.end(),
                       [node](Name key) { return node.HasProperty(key); });
}

} // namespace

bool IsRate(Ticks frameTicks)
{
    return frameTicks > 0 && frameTicks != std::numeric_limits<Ticks>::max();
}

ConstChildRange ItemsOf(ConstHandle bin)
{
    return bin.GetChildren();
}

MasterClip MasterOfItem(ConstHandle clipItem)
{
    return MasterClip(clipItem.GetChild("MasterClip"));
}

std::string_view ObjectGuid(ConstHandle object)
{
    return object.GetProperty("uid");
}

ConstHandle LoggingInfoOf(MasterClip masterClip)
{
    return masterClip.GetChild("LoggingInfo");
}

ConstChildRange ChannelVectorsOf(MasterClip masterClip)
{
    return masterClip.GetChild("AudioClipChannelGroups").GetChildren("ClipChannelVectorItem");
}

ConstChildRange ChannelsOfVector(ConstHandle vector)
{
    return vector.GetChildren("ClipChannelItem");
}

ConstHandle VideoChainOfMaster(MasterClip masterClip)
{
    return masterClip.GetChild("VideoComponentChain");
}

ConstHandle AudioChainOfMaster(MasterClip masterClip)
{
    return masterClip.GetChild("AudioComponentChain");
}

Media AudioMediaOfMaster(MasterClip masterClip)
{
    for (const ConstHandle clip : masterClip.Clips())
        if (IsAudioClip(clip))
            if (const Media media = MediaOfSource(SourceOfClip(clip)))
                return media;
    return {};
}

bool IsVideoClip(ConstHandle clip)
{
    return clip.GetName() == "VideoClip";
}

bool IsAudioClip(ConstHandle clip)
{
    return clip.GetName() == "AudioClip";
}

bool IsClip(ConstHandle clip)
{
    return clip.HasChild("Source") || HasAny(clip, {"FrameRate", "InPoint", "OutPoint"});
}

ConstHandle SourceOfClip(ConstHandle clip)
{
    return clip.GetChild("Source");
}

ConstChildRange SecondaryContentsOf(ConstHandle audioClip)
{
    return audioClip.GetChildren("SecondaryContentItem");
}

ConstHandle SourceOfContent(ConstHandle secondaryContent)
{
    return secondaryContent.GetChild("Content");
}

bool HasTimeRemapping(ConstHandle clip)
{
    return clip.HasChild("TimeRemapping");
}

std::string_view SpeedKeyframesOf(ConstHandle clip)
{
    return FindPath(clip, {"TimeRemapping", "Keyframes"}).GetProperty("Keyframes");
}

Media MediaOfSource(ConstHandle source)
{
    return Media(source.GetChild("Media"));
}

ConstHandle VideoStreamOf(Media media)
{
    return media.GetChild("VideoStream");
}

ConstHandle AudioStreamOf(Media media)
{
    return media.GetChild("AudioStream");
}

ConstHandle SequenceOfSource(ConstHandle source)
{
    return source.GetChild("Sequence");
}

bool IsMergedSequence(ConstHandle sequence)
{
    return IsTrue(sequence, "BE.Sequence.IsMergedClip");
}

ConstChildRange TrackGroupsOf(ConstHandle sequence)
{
    return sequence.GetChildren("TrackGroup");
}

bool HasTrackGroups(ConstHandle sequence)
{
    return sequence.HasChild("TrackGroup") || sequence.HasProperty("TrackGroups");
}

bool IsGroupOf(ConstHandle group, MediaType type)
{
    return EqualsIgnoreCase(group.GetProperty("mediatype"), MediaTypeText(type));
}

ConstHandle GroupOfKind(ConstHandle sequence, MediaType type)
{
    for (const ConstHandle group : TrackGroupsOf(sequence))
        if (IsGroupOf(group, type))
            return group;
    return {};
}

ConstChildRange TracksOf(ConstHandle group)
{
    return group.GetChildren("Track");
}

ConstHandle MasterTrackOf(ConstHandle group)
{
    const ConstHandle track = group.GetChild("MasterTrack");
    return track.HasProperties() || track.HasChildren() ? track : ConstHandle();
}

ConstChildRange LinksOf(ConstHandle sequence)
{
    return sequence.GetChild("PersistentGroupContainer").GetChildren("Link");
}

ConstChildRange LinkedItemsOf(ConstHandle link)
{
    return link.GetChildren("TrackItem");
}

ConstChildRange TrackItemsOf(ConstHandle track)
{
    return track.GetChildren("TrackItem");
}

ConstHandle SubClipOf(TrackItem item)
{
    return item.GetChild("SubClip");
}

ConstHandle ClipOfSubClip(ConstHandle subClip)
{
    return subClip.GetChild("Clip");
}

MasterClip MasterOfSubClip(ConstHandle subClip)
{
    return MasterClip(subClip.GetChild("MasterClip"));
}

ConstHandle HeadTransitionOf(TrackItem item)
{
    return item.GetChild("HeadTransition");
}

ConstHandle TailTransitionOf(TrackItem item)
{
    return item.GetChild("TailTransition");
}

bool IsTransition(ConstHandle transition)
{
    return HasAny(transition,
                  {"Start", "End", "HasIncomingClip", "HasOutgoingClip", "Alignment", "MatchName"});
}

ConstHandle ChainOfOwner(ConstHandle owner)
{
    return owner.GetChild("Components");
}

ConstChildRange ComponentsOf(ConstHandle chain)
{
    return chain.GetChildren("Component");
}

std::string_view ComponentMatchName(ConstHandle component)
{
    return component.HasProperty("MatchName") ? component.GetProperty("MatchName")
                                              : component.GetProperty("FilterMatchName");
}

ConstChildRange ParamsOf(ConstHandle component)
{
    return component.GetChildren("Param");
}

ConstChildRange DependenciesOf(ConstHandle component)
{
    return component.GetChildren("Dependency");
}

ConstHandle FaderParam(ConstHandle audioTrack, std::string_view name)
{
    for (const ConstHandle component : ComponentsOf(ChainOfOwner(audioTrack)))
        if (component.GetName() == "AudioFader")
            for (const ConstHandle param : ParamsOf(component))
                if (param.GetProperty("Name") == name)
                    return param;
    return {};
}

ConstHandle PannerOf(ConstHandle owner)
{
    return owner.GetChild("Panner");
}

bool AssignsChannels(ConstHandle panner)
{
    return HasAny(panner, {"DirectPanProcessor", "Matrix", "NumInputChannels"});
}

ConstChildRange MarkersOf(ConstHandle owner)
{
    return owner.GetChild("Markers").GetChildren("Marker");
}

std::string_view MarkerRecordOf(ConstHandle marker)
{
    return marker.GetProperty("HULMarker");
}

} // namespace XPJ

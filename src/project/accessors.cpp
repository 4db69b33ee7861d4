#include "project/accessors.h"

#include "core/text.h"

#include <limits>

namespace XPJ {

namespace {

ConstHandle FirstClipOfClass(MasterClip masterClip, std::string_view className)
{
    for (const ConstHandle clip : ClipsOfMaster(masterClip))
        if (clip.GetName() == className)
            return clip;
    return {};
}

} // namespace

bool IsRate(Ticks frameTicks)
{
    return frameTicks > 0 && frameTicks != std::numeric_limits<Ticks>::max();
}

ConstHandle ItemList(ConstHandle item)
{
    return FindPath(item, {"ProjectItemContainer", "Items"});
}

std::string_view ItemName(ConstHandle item)
{
    return item.GetChild("ProjectItem").GetProperty("Name");
}

ConstHandle ItemProperties(ConstHandle item)
{
    return FindPath(item, {"ProjectItem", "Node", "Properties"});
}

MasterClip MasterOfItem(ConstHandle clipItem)
{
    return MasterClip(clipItem.GetChild("MasterClip"));
}

std::string_view ObjectGuid(ConstHandle object)
{
    return object.GetProperty("UIDObject");
}

ConstChildRange ClipsOfMaster(MasterClip masterClip)
{
    return masterClip.GetChild("Clips").GetChildren("Clip");
}

ConstHandle FirstVideoClip(MasterClip masterClip)
{
    return FirstClipOfClass(masterClip, "VideoClip");
}

ConstHandle FirstAudioClip(MasterClip masterClip)
{
    return FirstClipOfClass(masterClip, "AudioClip");
}

ConstHandle MainClip(MasterClip masterClip)
{
    const ConstHandle video = FirstVideoClip(masterClip);
    return video ? video : FirstAudioClip(masterClip);
}

ConstHandle SequenceOfMaster(MasterClip masterClip)
{
    for (const ConstHandle clip : ClipsOfMaster(masterClip))
        if (const ConstHandle sequence = SequenceOfSource(SourceOfClip(clip)))
            return sequence;
    return {};
}

ConstHandle LoggingInfoOf(MasterClip masterClip)
{
    return masterClip.GetChild("LoggingInfo");
}

ConstChildRange ChannelVectorsOf(MasterClip masterClip)
{
    return FindPath(masterClip, {"AudioClipChannelGroups", "ClipChannelVectors"})
        .GetChildren("ClipChannelVectorItem");
}

ConstChildRange ChannelsOfVector(ConstHandle vector)
{
    return vector.GetChild("ClipChannels").GetChildren("ClipChannelItem");
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
    for (const ConstHandle clip : ClipsOfMaster(masterClip))
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

ConstHandle ClipCore(ConstHandle clip)
{
    return clip.GetChild("Clip");
}

ConstHandle ClipProperties(ConstHandle clip)
{
    return ClipCore(clip).GetChild("Properties");
}

ConstHandle SourceOfClip(ConstHandle clip)
{
    return SourceOfCore(ClipCore(clip));
}

ConstHandle SourceOfCore(ConstHandle core)
{
    return core.GetChild("Source");
}

ConstChildRange SecondaryContentsOf(ConstHandle audioClip)
{
    return audioClip.GetChild("SecondaryContents").GetChildren("SecondaryContentItem");
}

ConstHandle SourceOfContent(ConstHandle secondaryContent)
{
    return secondaryContent.GetChild("Content");
}

bool HasTimeRemapping(ConstHandle clip)
{
    return ClipCore(clip).HasChild("TimeRemapping");
}

std::string_view SpeedKeyframesOf(ConstHandle clip)
{
    return FindPath(ClipCore(clip), {"TimeRemapping", "Keyframes"}).GetProperty("Keyframes");
}

Media MediaOfSource(ConstHandle source)
{
    return Media(FindPath(source, {"MediaSource", "Media"}));
}

ConstHandle VideoStreamOf(Media media)
{
    return media.GetChild("VideoStream");
}

ConstHandle AudioStreamOf(Media media)
{
    return media.GetChild("AudioStream");
}

ConstHandle BoundariesOfSource(ConstHandle source)
{
    return FindPath(source, {"MediaSource", "Content"});
}

ConstHandle SequenceOfSource(ConstHandle source)
{
    return FindPath(source, {"SequenceSource", "Sequence"});
}

ConstHandle SequenceProperties(ConstHandle sequence)
{
    return sequence.GetChild("Properties");
}

bool IsMergedSequence(ConstHandle sequence)
{
    const ConstHandle holder =
        sequence.HasProperty("BE.Sequence.IsMergedClip") ? sequence : SequenceProperties(sequence);
    return IsTrue(holder, "BE.Sequence.IsMergedClip");
}

bool HasTrackGroups(ConstHandle sequence)
{
    return sequence.HasChild("TrackGroups");
}

ConstChildRange GroupEntriesOf(ConstHandle sequence)
{
    return sequence.GetChild("TrackGroups").GetChildren("TrackGroup");
}

bool IsGroupEntryOf(ConstHandle entry, MediaType type)
{
    return EqualsIgnoreCase(entry.GetProperty("First"), MediaTypeText(type));
}

ConstHandle GroupOfEntry(ConstHandle entry)
{
    return entry.GetChild("Second");
}

ConstHandle GroupOfKind(ConstHandle sequence, MediaType type)
{
    for (const ConstHandle entry : GroupEntriesOf(sequence))
        if (IsGroupEntryOf(entry, type))
            return GroupOfEntry(entry);
    return {};
}

Ticks RateOfGroup(ConstHandle group)
{
    return Int64Property(group.GetChild("TrackGroup"), "FrameRate");
}

ConstChildRange TracksOf(ConstHandle group)
{
    return FindPath(group, {"TrackGroup", "Tracks"}).GetChildren("Track");
}

ConstHandle MasterAudioTrackOf(ConstHandle group)
{
    return FindPath(group, {"MasterTrack", "AudioTrack"});
}

ConstChildRange LinksOf(ConstHandle sequence)
{
    return FindPath(sequence, {"PersistentGroupContainer", "LinkContainer", "Links"})
        .GetChildren("Link");
}

ConstChildRange LinkedItemsOf(ConstHandle link)
{
    return FindPath(link, {"TrackItemGroup", "TrackItems"}).GetChildren("TrackItem");
}

ConstHandle TrackCore(ConstHandle track)
{
    return FindPath(track, {"ClipTrack", "Track"});
}

ConstHandle TrackProperties(ConstHandle track)
{
    return TrackCore(track).GetChild("Properties");
}

ConstChildRange TrackItemsOf(ConstHandle track)
{
    return FindPath(track, {"ClipTrack", "ClipItems", "TrackItems"}).GetChildren("TrackItem");
}

ConstHandle AudioTrackOf(ConstHandle track)
{
    return track.GetChild("AudioTrack");
}

ConstHandle ItemCore(TrackItem item)
{
    return item.GetChild("ClipTrackItem");
}

ConstHandle ItemEdges(TrackItem item)
{
    return ItemCore(item).GetChild("TrackItem");
}

ConstHandle SubClipOf(TrackItem item)
{
    return ItemCore(item).GetChild("SubClip");
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
    return ItemCore(item).GetChild("HeadTransition");
}

ConstHandle TailTransitionOf(TrackItem item)
{
    return ItemCore(item).GetChild("TailTransition");
}

ConstHandle TransitionCore(ConstHandle transition)
{
    return transition.GetChild("TransitionTrackItem");
}

ConstHandle TransitionEdges(ConstHandle transition)
{
    return TransitionCore(transition).GetChild("TrackItem");
}

ConstHandle ChainOfOwner(ConstHandle owner)
{
    return FindPath(owner, {"ComponentOwner", "Components"});
}

ConstChildRange ComponentsOf(ConstHandle chain)
{
    return FindPath(chain, {"ComponentChain", "Components"}).GetChildren("Component");
}

std::string_view ComponentMatchName(ConstHandle component)
{
    return component.HasProperty("MatchName") ? component.GetProperty("MatchName")
                                              : component.GetProperty("FilterMatchName");
}

ConstHandle ComponentCore(ConstHandle component)
{
    const ConstHandle core = component.GetChild("Component");
    return core ? core : FindPath(component, {"AudioComponent", "Component"});
}

ConstHandle ParamListOf(ConstHandle component)
{
    return ComponentCore(component).GetChild("Params");
}

ConstChildRange ParamsOf(ConstHandle component)
{
    return ParamListOf(component).GetChildren("Param");
}

ConstHandle ComponentProperties(ConstHandle component)
{
    return FindPath(ComponentCore(component), {"Node", "Properties"});
}

ConstChildRange DependenciesOf(ConstHandle component)
{
    return component.GetChild("PluginDependencyMap").GetChildren("Dependency");
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

ConstHandle DirectPanProcessorOf(ConstHandle owner)
{
    return FindPath(owner, {"Panner", "DirectPanProcessor"});
}

ConstHandle PanProcessorOf(ConstHandle owner)
{
    const ConstHandle own = FindPath(owner, {"Panner", "PanProcessor"});
    return own ? own : DirectPanProcessorOf(owner).GetChild("PanProcessor");
}

ConstChildRange MarkerEntriesOf(ConstHandle owner)
{
    return FindPath(owner, {"MarkerOwner", "Markers", "Markers"}).GetChildren("Marker");
}

std::string_view MarkerRecordOf(ConstHandle entry)
{
    return entry.GetChild("Second").GetProperty("HULMarker");
}

} // namespace XPJ

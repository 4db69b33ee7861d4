#include "project/accessors.h"

#include "core/text.h"

namespace XPJ {

namespace {

ObjectHandle FirstClipOfClass(ObjectHandle masterClip, std::string_view className)
{
    for (const ObjectHandle clip : ClipsOfMaster(masterClip))
        if (clip.GetName() == className)
            return clip;
    return {};
}

} // namespace

ObjectHandle ItemList(ObjectHandle item)
{
    return FindPath(item, {"ProjectItemContainer", "Items"});
}

std::string_view ItemName(ObjectHandle item)
{
    return item.GetChild("ProjectItem").GetProperty("Name");
}

ObjectHandle ItemProperties(ObjectHandle item)
{
    return FindPath(item, {"ProjectItem", "Node", "Properties"});
}

ObjectHandle MasterOfItem(ObjectHandle clipItem)
{
    return clipItem.GetChild("MasterClip");
}

std::string_view ObjectGuid(ObjectHandle object)
{
    return object.GetProperty("UIDObject");
}

ChildRange ClipsOfMaster(ObjectHandle masterClip)
{
    return masterClip.GetChild("Clips").GetChildren("Clip");
}

ObjectHandle FirstVideoClip(ObjectHandle masterClip)
{
    return FirstClipOfClass(masterClip, "VideoClip");
}

ObjectHandle FirstAudioClip(ObjectHandle masterClip)
{
    return FirstClipOfClass(masterClip, "AudioClip");
}

ObjectHandle MainClip(ObjectHandle masterClip)
{
    const ObjectHandle video = FirstVideoClip(masterClip);
    return video ? video : FirstAudioClip(masterClip);
}

ObjectHandle SequenceOfMaster(ObjectHandle masterClip)
{
    for (const ObjectHandle clip : ClipsOfMaster(masterClip))
        if (const ObjectHandle sequence = SequenceOfSource(SourceOfClip(clip)))
            return sequence;
    return {};
}

ObjectHandle LoggingInfoOf(ObjectHandle masterClip)
{
    return masterClip.GetChild("LoggingInfo");
}

ChildRange ChannelVectorsOf(ObjectHandle masterClip)
{
    return FindPath(masterClip, {"AudioClipChannelGroups", "ClipChannelVectors"})
        .GetChildren("ClipChannelVectorItem");
}

ChildRange ChannelsOfVector(ObjectHandle vector)
{
    return vector.GetChild("ClipChannels").GetChildren("ClipChannelItem");
}

ObjectHandle VideoChainOfMaster(ObjectHandle masterClip)
{
    return masterClip.GetChild("VideoComponentChain");
}

ObjectHandle AudioChainOfMaster(ObjectHandle masterClip)
{
    return masterClip.GetChild("AudioComponentChain");
}

bool IsVideoClip(ObjectHandle clip)
{
    return clip.GetName() == "VideoClip";
}

bool IsAudioClip(ObjectHandle clip)
{
    return clip.GetName() == "AudioClip";
}

ObjectHandle ClipCore(ObjectHandle clip)
{
    return clip.GetChild("Clip");
}

ObjectHandle ClipProperties(ObjectHandle clip)
{
    return ClipCore(clip).GetChild("Properties");
}

ObjectHandle SourceOfClip(ObjectHandle clip)
{
    return SourceOfCore(ClipCore(clip));
}

ObjectHandle SourceOfCore(ObjectHandle core)
{
    return core.GetChild("Source");
}

ChildRange SecondaryContentsOf(ObjectHandle audioClip)
{
    return audioClip.GetChild("SecondaryContents").GetChildren("SecondaryContentItem");
}

ObjectHandle SourceOfContent(ObjectHandle secondaryContent)
{
    return secondaryContent.GetChild("Content");
}

bool HasTimeRemapping(ObjectHandle clip)
{
    return ClipCore(clip).HasChild("TimeRemapping");
}

std::string_view SpeedKeyframesOf(ObjectHandle clip)
{
    return FindPath(ClipCore(clip), {"TimeRemapping", "Keyframes"}).GetProperty("Keyframes");
}

ObjectHandle MediaOfSource(ObjectHandle source)
{
    return FindPath(source, {"MediaSource", "Media"});
}

ObjectHandle VideoStreamOf(ObjectHandle media)
{
    return media.GetChild("VideoStream");
}

ObjectHandle AudioStreamOf(ObjectHandle media)
{
    return media.GetChild("AudioStream");
}

ObjectHandle BoundariesOfSource(ObjectHandle source)
{
    return FindPath(source, {"MediaSource", "Content"});
}

ObjectHandle SequenceOfSource(ObjectHandle source)
{
    return FindPath(source, {"SequenceSource", "Sequence"});
}

ObjectHandle SequenceProperties(ObjectHandle sequence)
{
    return sequence.GetChild("Properties");
}

bool IsMergedSequence(ObjectHandle sequence)
{
    const ObjectHandle holder =
        sequence.HasProperty("BE.Sequence.IsMergedClip") ? sequence : SequenceProperties(sequence);
    return IsTrue(holder, "BE.Sequence.IsMergedClip");
}

bool HasTrackGroups(ObjectHandle sequence)
{
    return sequence.HasChild("TrackGroups");
}

ChildRange GroupEntriesOf(ObjectHandle sequence)
{
    return sequence.GetChild("TrackGroups").GetChildren("TrackGroup");
}

bool IsGroupEntryOf(ObjectHandle entry, MediaType kind)
{
    return EqualsIgnoreCase(entry.GetProperty("First"), MediaTypeText(kind));
}

ObjectHandle GroupOfEntry(ObjectHandle entry)
{
    return entry.GetChild("Second");
}

ObjectHandle GroupOfKind(ObjectHandle sequence, MediaType kind)
{
    for (const ObjectHandle entry : GroupEntriesOf(sequence))
        if (IsGroupEntryOf(entry, kind))
            return GroupOfEntry(entry);
    return {};
}

Ticks RateOfGroup(ObjectHandle group)
{
    return Int64Property(group.GetChild("TrackGroup"), "FrameRate");
}

ChildRange TracksOf(ObjectHandle group)
{
    return FindPath(group, {"TrackGroup", "Tracks"}).GetChildren("Track");
}

ObjectHandle MasterAudioTrackOf(ObjectHandle group)
{
    return FindPath(group, {"MasterTrack", "AudioTrack"});
}

ChildRange LinksOf(ObjectHandle sequence)
{
    return FindPath(sequence, {"PersistentGroupContainer", "LinkContainer", "Links"})
        .GetChildren("Link");
}

ChildRange LinkedItemsOf(ObjectHandle link)
{
    return FindPath(link, {"TrackItemGroup", "TrackItems"}).GetChildren("TrackItem");
}

ObjectHandle TrackCore(ObjectHandle track)
{
    return FindPath(track, {"ClipTrack", "Track"});
}

ObjectHandle TrackProperties(ObjectHandle track)
{
    return TrackCore(track).GetChild("Properties");
}

ChildRange TrackItemsOf(ObjectHandle track)
{
    return FindPath(track, {"ClipTrack", "ClipItems", "TrackItems"}).GetChildren("TrackItem");
}

ObjectHandle AudioTrackOf(ObjectHandle track)
{
    return track.GetChild("AudioTrack");
}

ObjectHandle ItemCore(ObjectHandle item)
{
    return item.GetChild("ClipTrackItem");
}

ObjectHandle ItemEdges(ObjectHandle item)
{
    return ItemCore(item).GetChild("TrackItem");
}

ObjectHandle SubClipOf(ObjectHandle item)
{
    return ItemCore(item).GetChild("SubClip");
}

ObjectHandle ClipOfSubClip(ObjectHandle subClip)
{
    return subClip.GetChild("Clip");
}

ObjectHandle MasterOfSubClip(ObjectHandle subClip)
{
    return subClip.GetChild("MasterClip");
}

ObjectHandle HeadTransitionOf(ObjectHandle item)
{
    return ItemCore(item).GetChild("HeadTransition");
}

ObjectHandle TailTransitionOf(ObjectHandle item)
{
    return ItemCore(item).GetChild("TailTransition");
}

ObjectHandle TransitionCore(ObjectHandle transition)
{
    return transition.GetChild("TransitionTrackItem");
}

ObjectHandle TransitionEdges(ObjectHandle transition)
{
    return TransitionCore(transition).GetChild("TrackItem");
}

ObjectHandle ChainOfOwner(ObjectHandle owner)
{
    return FindPath(owner, {"ComponentOwner", "Components"});
}

ChildRange ComponentsOf(ObjectHandle chain)
{
    return FindPath(chain, {"ComponentChain", "Components"}).GetChildren("Component");
}

std::string_view ComponentMatchName(ObjectHandle component)
{
    return component.HasProperty("MatchName") ? component.GetProperty("MatchName")
                                              : component.GetProperty("FilterMatchName");
}

ObjectHandle ComponentCore(ObjectHandle component)
{
    const ObjectHandle core = component.GetChild("Component");
    return core ? core : FindPath(component, {"AudioComponent", "Component"});
}

ObjectHandle ParamListOf(ObjectHandle component)
{
    return ComponentCore(component).GetChild("Params");
}

ChildRange ParamsOf(ObjectHandle component)
{
    return ParamListOf(component).GetChildren("Param");
}

ObjectHandle ComponentProperties(ObjectHandle component)
{
    return FindPath(ComponentCore(component), {"Node", "Properties"});
}

ChildRange DependenciesOf(ObjectHandle component)
{
    return component.GetChild("PluginDependencyMap").GetChildren("Dependency");
}

ObjectHandle DirectPanProcessorOf(ObjectHandle owner)
{
    return FindPath(owner, {"Panner", "DirectPanProcessor"});
}

ObjectHandle PanProcessorOf(ObjectHandle owner)
{
    const ObjectHandle own = FindPath(owner, {"Panner", "PanProcessor"});
    return own ? own : DirectPanProcessorOf(owner).GetChild("PanProcessor");
}

ChildRange MarkerEntriesOf(ObjectHandle owner)
{
    return FindPath(owner, {"MarkerOwner", "Markers", "Markers"}).GetChildren("Marker");
}

std::string_view MarkerRecordOf(ObjectHandle entry)
{
    return entry.GetChild("Second").GetProperty("HULMarker");
}

} // namespace XPJ

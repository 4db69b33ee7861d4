#include "project/synthetic_items.h"

#include "core/numbers.h"
#include "xmeml/item_times.h"
#include "project/panners.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

// The clip's id stands on the master too, where the host looks for it.
ObjectHandle MakeSubClip(Document& document, const WholeItem& item)
{
    const ObjectHandle childId = document.NewObject("ChildClipIDSerializer");
    childId.SetPropertyShared("ID", item.clip.GetProperty("ClipID"));
    const ObjectHandle subClip = document.NewObject("SubClip");
    subClip.SetProperty("Name", item.name);
    subClip.AddChild("Clip", item.clip);
    subClip.AddChild("MasterClip", item.master);
    subClip.AddChild("ChildClipID", childId);
    item.master.AddChild("ChildClipID", childId);
    item.clip.AddPropertyShared("InPoint", "0");
    item.clip.AddProperty("OutPoint", TickText(Minus(item.end, item.start)));
    return subClip;
}

void FillItem(Document& document, const WholeItem& item, MediaType type, ObjectHandle trackItem)
{
    trackItem.SetPropertyShared("MediaType", MediaTypeText(type));
    trackItem.SetProperty("TrackIndex", IntToString(item.trackIndex));
    trackItem.SetPropertyShared("IsMuted", "false");
    trackItem.SetProperty("Start", TickText(item.start));
    trackItem.SetProperty("End", TickText(item.end));
    trackItem.SetPropertyShared("LinkRefCount", "0");
    trackItem.AddChild("SubClip", MakeSubClip(document, item));
}

} // namespace

ObjectHandle MakeWholeVideoItem(Document& document, const WholeItem& item,
                                std::string_view frameRect, std::string_view aspect)
{
    const ObjectHandle result = document.NewObject("VideoClipTrackItem");
    FillItem(document, item, MediaType::Video, result);
    result.SetProperty("FrameRect", frameRect);
    result.SetProperty("PixelAspectRatio", aspect);
    result.AddChild("Components", MakeEmptyVideoChain(document));
    return result;
}

ObjectHandle MakeWholeAudioItem(Document& document, const WholeItem& item, Ticks sampleTicks)
{
    const ObjectHandle result = document.NewObject("AudioClipTrackItem");
    FillItem(document, item, MediaType::Audio, result);
    result.SetProperty("ID", NewGuidText());
    result.AddChild("Components",
                    MakeEmptyAudioChain(document, item.channelType, TickText(sampleTicks)));
    result.AddChild("Panner",
                    MakeDefaultPanner(document, item.channelType, item.channelType, sampleTicks));
    return result;
}

ObjectHandle MakeEmptyVideoChain(Document& document)
{
    const ObjectHandle chain = document.NewObject("VideoComponentChain");
    chain.SetPropertyShared("DefaultOpacity", "true");
    chain.SetPropertyShared("DefaultMotion", "true");
    chain.SetPropertyShared("NextComponentID", "3"); // the first two are opacity and motion
    return chain;
}

ObjectHandle MakeEmptyAudioChain(Document& document, int channelType, std::string_view frameRate)
{
    const ObjectHandle chain = document.NewObject("AudioComponentChain");
    chain.SetProperty("FrameRate", frameRate);
    chain.SetProperty("ChannelType", IntToString(channelType));
    chain.SetPropertyShared("DefaultVol", "true");
    chain.SetPropertyShared("NextComponentID", "-1");
    return chain;
}

ObjectHandle MakeVideoGroup(Document& document, Ticks frameTicks, std::string_view frameRect,
                            std::string_view aspect)
{
    const ObjectHandle group = document.NewObject("VideoTrackGroup");
    group.SetPropertyShared("mediatype", MediaTypeText(MediaType::Video));
    group.SetProperty("FrameRate", TickText(frameTicks));
    group.SetProperty("FrameRect", frameRect);
    group.SetProperty("PixelAspectRatio", aspect);
    return group;
}

} // namespace XPJ

#include "project/synthetic_items.h"

#include "core/media_type.h"
#include "core/numbers.h"
#include "platform/platform.h"
#include "project/panners.h"

namespace XPJ {

namespace {

ObjectHandle MakeWholeSubClip(Document& document, const SyntheticItem& item)
{
    const SubClipParts parts = MakeSubClip(document, item.name, item.clip, item.master);
    item.master.AddChild("ChildClipID", parts.clipId);
    item.clip.AddPropertyShared("InPoint", "0");
    item.clip.AddProperty("OutPoint", TickText(SubtractTicks(item.end, item.start)));
    return parts.subClip;
}

void FillItem(Document& document, const SyntheticItem& item, MediaType type, ObjectHandle trackItem)
{
    trackItem.SetPropertyShared("MediaType", MediaTypeText(type));
    trackItem.SetProperty("TrackIndex", IntToString(item.trackIndex));
    trackItem.SetPropertyShared("IsMuted", "false");
    trackItem.SetProperty("Start", TickText(item.start));
    trackItem.SetProperty("End", TickText(item.end));
    trackItem.SetPropertyShared("LinkRefCount", "0");
    trackItem.AddChild("SubClip", MakeWholeSubClip(document, item));
}

} // namespace

ObjectHandle MakeSyntheticVideoItem(Document& document, const SyntheticItem& item,
                                    std::string_view frameRect, std::string_view aspect)
{
    const ObjectHandle result = document.NewObject("VideoClipTrackItem");
    FillItem(document, item, MediaType::Video, result);
    result.SetProperty("FrameRect", frameRect);
    result.SetProperty("PixelAspectRatio", aspect);
    result.AddChild("Components", MakeEmptyVideoChain(document));
    return result;
}

ObjectHandle MakeSyntheticAudioItem(Document& document, const SyntheticItem& item,
                                    Ticks sampleTicks)
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

SubClipParts MakeSubClip(Document& document, std::string_view name, ObjectHandle clip,
                         ObjectHandle master)
{
    const SubClipParts parts{
        document.NewObject("SubClip", {{"Name", document.Store(name)}}),
        document.NewObject("ChildClipIDSerializer", {{"ID", clip.GetProperty("ClipID")}})};
    parts.subClip.AddChild("Clip", clip);
    parts.subClip.AddChild("MasterClip", master);
    parts.subClip.AddChild("ChildClipID", parts.clipId);
    return parts;
}

} // namespace XPJ

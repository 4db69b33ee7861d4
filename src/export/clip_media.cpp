#include "export/clip_media.h"

#include "core/text.h"
#include "export/files.h"
#include "export/formats.h"
#include "export/links.h"
#include "export/master_audio.h"
#include "project/accessors.h"

#include <vector>

namespace XPJ::RVX {

namespace {

ObjectHandle TranslatePicture(ExportContext& context, ConstHandle masterClip,
                              const MasterMedia& media)
{
    const ObjectHandle item = NewClipItem(context, masterClip, media.medium);
    WriteAlpha(VideoStreamOf(media.medium), item);
    ApplySubclipOffsets(context, media.boundaries, item);
    const ObjectHandle track = context.document.NewObject("track");
    track.AddChild(item);
    const ObjectHandle video = context.document.NewObject("video");
    video.AddChild(track);
    return video;
}

std::vector<ObjectHandle> ItemsOf(ObjectHandle videoOrAudio)
{
    std::vector<ObjectHandle> items;
    for (const ObjectHandle track : videoOrAudio.GetChildren("track"))
        for (const ObjectHandle item : track.GetChildren("clipitem"))
            items.push_back(item);
    return items;
}

// Channels that are not known to be independent belong together.
bool AreGrouped(const ExportContext& context, ObjectHandle audio, std::size_t channels)
{
    if (context.vl2snMode || !audio)
        return false;
    return HasValue(audio, "channeltype") ? audio.GetProperty("channeltype") != "0" : channels > 1;
}

// Every item of a clip refers to all of them, itself included.
void AddClipItemLinks(ExportContext& context, ObjectHandle media)
{
    const ObjectHandle audio = media.GetChild("audio");
    const std::vector<ObjectHandle> pictures = ItemsOf(media.GetChild("video"));
    const std::vector<ObjectHandle> sounds = ItemsOf(audio);
    const bool grouped = AreGrouped(context, audio, sounds.size());
    std::vector<ObjectHandle> links;
    links.reserve(pictures.size() + sounds.size());
    for (const ObjectHandle item : pictures)
        links.push_back(NewLink(context, item, MediaType::Video, 1, 1, false));
    int track = 0;
    for (const ObjectHandle item : sounds)
        links.push_back(NewLink(context, item, MediaType::Audio, ++track, 1, grouped));
    for (const std::vector<ObjectHandle>* items : {&pictures, &sounds})
        for (const ObjectHandle item : *items)
            for (const ObjectHandle link : links)
                item.AddChild(link);
}

} // namespace

ObjectHandle NewClipItem(ExportContext& context, ConstHandle masterClip, ConstHandle medium)
{
    const ObjectHandle item = context.document.NewObject("clipitem");
    item.SetProperty("id", NewId(context, "clipitem-", context.ids.clipItem));
    item.SetPropertyShared("masterclipid", MasterClipId(context, masterClip));
    if (HasValue(masterClip, "Name"))
        item.SetProperty("name", EscapeXML(masterClip.GetProperty("Name")));
    const ObjectHandle file = FileFor(context, item, medium, masterClip);
    item.AddChild(file.GetChild("rate"));
    return item;
}

ObjectHandle TranslateClipMedia(ExportContext& context, ConstHandle masterClip,
                                const MasterMedia& media, ObjectHandle& file)
{
    const ObjectHandle result = context.document.NewObject("media");
    const ConstHandle picture = VideoStreamOf(media.medium);
    if (picture.GetName() == "CaptioningStream")
        return result;
    if (picture)
        result.AddChild(TranslatePicture(context, masterClip, media));
    result.AddChild(TranslateMasterAudio(context, masterClip, media.medium));
    AddClipItemLinks(context, result);
    file = FindNote(context.files, media.medium);
    CopyProperty(file, "duration", result, "duration");
    result.AddChild(file.GetChild("rate"));
    return result;
}

} // namespace XPJ::RVX

#include "export/clip_media.h"

#include "core/numbers.h"
#include "core/text.h"
#include "export/audio_channels.h"
#include "export/effects.h"
#include "export/files.h"
#include "export/formats.h"
#include "export/markers.h"
#include "export/rates.h"

#include <algorithm>
#include <string>
#include <vector>

namespace XPJ::RVX {

namespace {

// The `media` of a clip that is being written.
struct ClipWriter {
    ExportContext& context;
    Catalogs& catalogs;
    FileSource source;
    std::vector<LinkTarget> items = {};

    // A `clipitem` with the file of the media and its rate, to be linked as `target` states.
    ObjectHandle NewClipItem(LinkTarget target);
    ObjectHandle TranslateVideo(const MasterSource& master);
    // Null for a master without audio.
    ObjectHandle TranslateAudio();
    // Every item of a clip refers to all of them, itself included.
    void WriteLinks();
};

ObjectHandle ClipWriter::NewClipItem(LinkTarget target)
{
    const ObjectHandle item = context.document.NewObject("clipitem");
    target.element = item;
    target.id = NewId(context.document, "clipitem-", context.ids.clipItem);
    item.SetPropertyShared("id", target.id);
    item.SetPropertyShared("masterclipid", catalogs.masters.IdOf(context, source.masterClip));
    if (HasValue(source.masterClip, "Name"))
        item.SetProperty("name", EscapeXML(source.masterClip.GetProperty("Name")));
    item.AddChild(WriteFile(context, catalogs, source, item).rate);
    items.push_back(target);
    return item;
}

ObjectHandle TrackWith(Document& document, ObjectHandle item)
{
    const ObjectHandle track = document.NewObject("track");
    track.AddChild(item);
    return track;
}

ObjectHandle ClipWriter::TranslateVideo(const MasterSource& master)
{
    const ObjectHandle item = NewClipItem({.type = MediaType::Video});
    WriteAlpha(VideoStreamOf(source.media), item);
    WriteSubclipOffsets(context.document, master.boundaries, ClipRate(source.media), item);
    const ObjectHandle video = context.document.NewObject("video");
    video.AddChild(TrackWith(context.document, item));
    return video;
}

// A `media` with a generator on a track, as large as the video that it generates.
ObjectHandle TranslateGenerator(ExportContext& context, Catalogs& catalogs, MasterClip masterClip,
                                Media media)
{
    Document& document = context.document;
    const ConstHandle stream = VideoStreamOf(media);
    const Ticks frameTicks = ClipRate(media);
    const std::string duration =
        TimeText(context.DocumentUnit(), Int64Property(stream, "Duration"), frameTicks);
    const ObjectHandle item = document.NewObject("generatoritem");
    item.SetPropertyShared("id", NewId(document, "clipitem-", context.ids.clipItem));
    item.SetPropertyShared("masterclipid", catalogs.masters.IdOf(context, masterClip));
    item.SetProperty("name", EscapeXML(media.GetProperty("Title")));
    item.SetProperty("duration", duration);
    item.AddChild(WriteRate(document, frameTicks));
    WriteClipRange(context.DocumentUnit(), masterClip.MainClip(), frameTicks, item);
    // Remarks about the markers are those of the clip.
    TranslateMarkers(
        context,
        {.owner = masterClip.MainClip(), .frameTicks = frameTicks, .unit = context.DocumentUnit()},
        item);
    const ItemLocation location = catalogs.masters.LocationOf(masterClip);
    item.AddChild(catalogs.generators.EffectOf(context, {media, masterClip, {}, &location}));
    TranslateMasterEffects(context, {masterClip, location, frameTicks}, item);

    const ObjectHandle format = document.NewObject("format");
    format.AddChild(WriteSampleCharacteristics(
        document, {.frameTicks = frameTicks,
                   .frameRect = stream.GetProperty("FrameRect"),
                   .pixelAspect = PixelAspectOf(stream),
                   .originalPixelAspect = OriginalPixelAspectOf(stream)}));
    const ObjectHandle video = document.NewObject("video");
    video.AddChild(format);
    video.AddChild(TrackWith(document, item));
    const ObjectHandle result = document.NewObject("media");
    result.AddChild(video);
    result.SetProperty("duration", duration);
    result.AddChild(WriteRate(document, frameTicks));
    return result;
}

// Channels that are not known to be independent belong together.
bool AreGrouped(const ExportContext& context, const ChannelLayout& layout)
{
    return !context.IsHandOff() && layout.count > 0 && layout.type != kMonoLayout;
}

ObjectHandle ClipWriter::TranslateAudio()
{
    if (!AudioStreamOf(AudioMediaOfMaster(source.masterClip)))
        return {};
    const ObjectHandle audio = context.document.NewObject("audio");
    const ChannelLayout layout = ChannelLayoutOf(source.masterClip);
    WriteChannelLayout(layout, audio);
    for (int channel = 1; channel <= std::max(layout.count, 1); ++channel) {
        const ObjectHandle item = NewClipItem(
            {.type = MediaType::Audio, .track = channel, .isGrouped = AreGrouped(context, layout)});
        WriteSourceTrack(context.document, channel, item);
        if (context.options.settings.openInterchange)
            TranslateMasterAudioEffects(context,
                                        {source.masterClip,
                                         catalogs.masters.LocationOf(source.masterClip),
                                         ClipRate(source.media)},
                                        channel, item);
        audio.AddChild(TrackWith(context.document, item));
    }
    return audio;
}

void ClipWriter::WriteLinks()
{
    std::vector<ObjectHandle> links;
    links.reserve(items.size());
    for (const LinkTarget& item : items)
        links.push_back(WriteLink(context.document, item));
    for (const LinkTarget& item : items)
        for (const ObjectHandle link : links)
            item.element.AddChild(link);
}

} // namespace

ObjectHandle TranslateClipMedia(ExportContext& context, Catalogs& catalogs, MasterClip masterClip,
                                const MasterSource& source)
{
    if (IsWrittenAsGenerator(context, source.media))
        return TranslateGenerator(context, catalogs, masterClip, source.media);
    const ObjectHandle result = context.document.NewObject("media");
    if (ShowsCaptions(source.media))
        return result;
    ClipWriter clip{context, catalogs, {source.media, masterClip}};
    if (VideoStreamOf(source.media))
        result.AddChild(clip.TranslateVideo(source));
    result.AddChild(clip.TranslateAudio());
    clip.WriteLinks();
    if (const FileRecord* const file = catalogs.files.Find(source.media)) {
        if (file->duration > 0)
            result.SetProperty("duration", IntToString(file->duration));
        result.AddChild(file->rate);
    }
    return result;
}

void WriteClipRange(TimeUnit unit, ConstHandle core, Ticks frameTicks, ObjectHandle element)
{
    constexpr struct {
        Name projectKey;
        Name key;
    } kPoints[] = {{"InPoint", "in"}, {"OutPoint", "out"}};
    for (const auto& point : kPoints)
        if (const Ticks time = Int64Property(core, point.projectKey); time >= 1)
            element.SetProperty(point.key, TimeText(unit, time, frameTicks));
}

void WriteSourceTrack(Document& document, std::int64_t number, ObjectHandle element)
{
    const ObjectHandle sourceTrack = document.NewObject("sourcetrack");
    sourceTrack.SetPropertyShared("mediatype", "audio");
    sourceTrack.SetProperty("trackindex", IntToString(number));
    element.AddChild(sourceTrack);
}

} // namespace XPJ::RVX

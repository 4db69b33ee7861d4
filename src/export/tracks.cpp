#include "export/tracks.h"

#include "export/formats.h"
#include "export/items.h"

namespace XPJ::RVX {

namespace {

ObjectHandle WriteFormat(ExportContext& context, Ticks frameTicks, ConstHandle group)
{
    const std::string_view aspect = group.GetProperty("PixelAspectRatio");
    const ObjectHandle characteristics =
        WriteSampleCharacteristics(context, {.frameTicks = frameTicks,
                                             .frameRect = group.GetProperty("FrameRect"),
                                             .pixelAspect = aspect,
                                             .originalPixelAspect = aspect,
                                             .fieldType = group.GetProperty("FieldType")});
    characteristics.SetPropertyShared("colordepth", "24");
    characteristics.AddChild(WriteCodec(context));
    const ObjectHandle format = context.document.NewObject("format");
    format.AddChild(characteristics);
    return format;
}

ObjectHandle TranslateVideoTrack(ExportContext& context, const SequencePlace& sequence,
                                 ConstHandle projectTrack, int index)
{
    TrackPlace track{.sequence = sequence,
                     .kind = MediaType::Video,
                     .index = index,
                     .number = index + 1,
                     .track = context.document.NewObject("track")};
    WriteTrackState(projectTrack, false, track.track);
    for (const ConstHandle item : TrackItemsOf(projectTrack))
        TranslateVideoItem(context, track, item);
    return track.track;
}

} // namespace

void WriteTrackState(ConstHandle projectTrack, bool isOff, ObjectHandle track)
{
    const ConstHandle core = TrackCore(projectTrack);
    track.SetPropertyShared("locked", IsTrue(core, "IsLocked") ? "TRUE" : "FALSE");
    track.SetPropertyShared("enabled", isOff || IsTrue(core, "IsMuted") ? "FALSE" : "TRUE");
    const ConstHandle properties = TrackProperties(projectTrack);
    if (properties.HasProperty("MZ.TrackTargeted"))
        track.SetPropertyShared("MZ.TrackTargeted", HasValue(properties, "MZ.TrackTargeted")
                                                        ? properties.GetProperty("MZ.TrackTargeted")
                                                        : "0");
}

ObjectHandle TranslateVideoGroup(ExportContext& context, const SequencePlace& sequence,
                                 ConstHandle group)
{
    const ObjectHandle video = context.document.NewObject("video");
    video.AddChild(WriteFormat(context, sequence.frameTicks, group));
    int index = 0;
    for (const ConstHandle track : TracksOf(group))
        video.AddChild(TranslateVideoTrack(context, sequence, track, index++));
    return video;
}

} // namespace XPJ::RVX

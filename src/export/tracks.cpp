#include "export/tracks.h"

#include "core/numbers.h"
#include "core/text.h"
#include "export/formats.h"

#include <string>

namespace XPJ::RVX {

namespace {

ObjectHandle WriteFormat(Document& document, Ticks frameTicks, ConstHandle group)
{
    const std::string_view aspect = group.GetProperty("PixelAspectRatio");
    const ObjectHandle characteristics =
        WriteSampleCharacteristics(document, {.frameTicks = frameTicks,
                                              .frameRect = group.GetProperty("FrameRect"),
                                              .pixelAspect = aspect,
                                              .originalPixelAspect = aspect,
                                              .fieldType = group.GetProperty("FieldType")});
    characteristics.SetPropertyShared("colordepth", "24");
    characteristics.AddChild(WriteCodec(document));
    const ObjectHandle format = document.NewObject("format");
    format.AddChild(characteristics);
    return format;
}

OpenTrack OpenVideoTrack(ExportContext& context, const SequenceContext& sequence,
                         ConstHandle projectTrack, int index)
{
    OpenTrack result{.track = {.sequence = sequence,
                               .type = MediaType::Video,
                               .unit = TimeUnit::Frames,
                               .index = index,
                               .number = index + 1,
                               .element = context.document.NewObject("track")},
                     .items = {}};
    WriteTrackState(context, projectTrack, false, result.track.element);
    ReportTrackName(context, result.track, projectTrack, "Video");
    for (const ConstHandle item : TrackItemsOf(projectTrack))
        result.items.push_back({.item = TrackItem(item)});
    return result;
}

} // namespace

void WriteTrackState(const ExportContext& context, ConstHandle projectTrack, bool isOff,
                     ObjectHandle track)
{
    track.SetPropertyShared("locked", IsTrue(projectTrack, "IsLocked") ? "TRUE" : "FALSE");
    const bool isMuted = IsTrue(projectTrack, "IsMuted");
    track.SetPropertyShared("enabled", isOff || isMuted ? "FALSE" : "TRUE");
    if (projectTrack.HasProperty("MZ.TrackTargeted"))
        track.SetPropertyShared("MZ.TrackTargeted",
                                HasValue(projectTrack, "MZ.TrackTargeted")
                                    ? projectTrack.GetProperty("MZ.TrackTargeted")
                                    : "0");
    // To the letter the hand-off alone has names.
    if (context.options.settings.openInterchange && HasValue(projectTrack, "MZ.TrackName"))
        track.SetProperty("name", EscapeXML(projectTrack.GetProperty("MZ.TrackName")));
}

void ReportTrackName(ExportContext& context, const TrackContext& track, ConstHandle projectTrack,
                     std::string_view usual)
{
    const std::string_view name = projectTrack.GetProperty("MZ.TrackName");
    if (name.empty() || HasValue(track.element, "name") ||
        name == std::string(usual) + " " + IntToString(track.index + 1))
        return;
    AddRemark(context.account, RemarkKind::TrackName, LocationOfTrack(track), {.name = name});
}

std::vector<OpenTrack> TranslateVideoGroup(ExportContext& context, const SequenceContext& sequence,
                                           ConstHandle group, ObjectHandle media)
{
    const ObjectHandle video = context.document.NewObject("video");
    media.AddChild(video);
    video.AddChild(WriteFormat(context.document, sequence.frameTicks, group));
    std::vector<OpenTrack> tracks;
    int index = 0;
    for (const ConstHandle projectTrack : TracksOf(group)) {
        tracks.push_back(OpenVideoTrack(context, sequence, projectTrack, index++));
        video.AddChild(tracks.back().track.element);
    }
    return tracks;
}

} // namespace XPJ::RVX

#include "export/item_place.h"

#include "core/frame_rate.h"

namespace XPJ::RVX {

std::string FormatItemTime(const SequencePlace& place, Ticks start)
{
    const ObjectHandle properties = SequenceProperties(place.sequence);
    const TimecodeBase form = TimecodeBaseOf(
        place.frameTicks, IntProperty(properties, "MZ.Sequence.VideoTimeDisplayFormat"));
    const Ticks time = AddTicks(Int64Property(properties, "MZ.ZeroPoint"), start);
    return FormatTimecode(DivTicks(time, place.frameTicks), form.base, form.drop);
}

ItemPlace PlaceOfItem(const TrackPlace& track, Ticks start, std::string_view clipName)
{
    return {.sequence = track.sequence.sequence.GetProperty("Name"),
            .clip = clipName,
            .trackKind = track.kind == MediaType::Video ? 1 : 2,
            .trackIndex = track.index,
            .time = FormatItemTime(track.sequence, start)};
}

void AddItemIssue(ExportContext& context, const TrackPlace& track, Ticks start, ExportIssue kind,
                  std::string_view clipName, std::string_view subject)
{
    AddIssue(context, kind, PlaceOfItem(track, start, clipName), subject);
}

} // namespace XPJ::RVX

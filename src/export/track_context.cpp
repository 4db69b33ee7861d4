#include "export/track_context.h"

#include "core/frame_rate.h"

namespace XPJ::RVX {

std::string FormatItemTime(const SequenceContext& context, Ticks start)
{
    const TimecodeBase counting = TimecodeBaseOf(
        context.frameTicks, IntProperty(context.sequence, "MZ.Sequence.VideoTimeDisplayFormat"));
    const Ticks time = AddTicks(Int64Property(context.sequence, "MZ.ZeroPoint"), start);
    return FormatTimecode(DivTicks(time, context.frameTicks), counting.base, counting.drop);
}

ItemLocation LocationOfItem(const TrackContext& track, Ticks start, std::string_view clipName)
{
    return {.sequence = track.sequence.sequence.GetProperty("Name"),
            .clip = clipName,
            .trackKind = track.type == MediaType::Video ? 1 : 2,
            .trackIndex = track.index,
            .time = FormatItemTime(track.sequence, start)};
}

} // namespace XPJ::RVX

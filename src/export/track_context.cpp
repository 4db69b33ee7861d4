#include "export/track_context.h"

#include "core/frame_rate.h"
#include "effects/values.h"

namespace XPJ::RVX {

SequenceContext ContextOfSequence(ConstHandle sequence, Ticks frameTicks)
{
    if (frameTicks == 0)
        throw NoFrameLength("sequence", sequence.GetProperty("Name"));
    const TimecodeBase counting =
        TimecodeBaseOf(frameTicks, IntProperty(sequence, "MZ.Sequence.VideoTimeDisplayFormat"));
    return {.sequence = sequence,
            .frameTicks = frameTicks,
            .numbering = {.first = DivTicks(Int64Property(sequence, "MZ.ZeroPoint"), frameTicks),
                          .base = counting.base,
                          .drop = counting.drop,
                          .sequence = sequence.UniqueId()}};
}

std::string FormatItemTime(const SequenceContext& context, Ticks start)
{
    const Ticks time = AddTicks(Int64Property(context.sequence, "MZ.ZeroPoint"), start);
    return FormatTimecode(DivTicks(time, context.frameTicks), context.numbering.base,
                          context.numbering.drop);
}

FrameSpan SpanOf(const SequenceContext& context, Ticks start, Ticks end)
{
    FrameSpan span = context.numbering;
    if (start >= 0)
        span.start = DivTicks(start, context.frameTicks);
    if (end >= 0)
        span.end = DivTicks(end, context.frameTicks);
    return span;
}

ItemLocation LocationOfTrack(const TrackContext& track)
{
    return {.sequence = track.sequence.sequence.GetProperty("Name"),
            .trackKind = track.type == MediaType::Video ? 1 : 2,
            .trackIndex = track.index,
            .span = track.sequence.numbering};
}

ItemLocation LocationOfItem(const TrackContext& track, ConstHandle item, std::string_view clipName)
{
    ItemLocation location = LocationOfTrack(track);
    location.clip = clipName;
    location.span =
        SpanOf(track.sequence, Int64Property(item, "Start"), Int64Property(item, "End"));
    return location;
}

Ticks BehindFrame(Ticks time, const TrackContext& track)
{
    const Ticks frame = track.sequence.frameTicks;
    return track.unit == TimeUnit::Frames && frame > 0 ? time % frame : 0;
}

std::string FramesText(Ticks ticks, const SequenceContext& context)
{
    return NumberText(static_cast<double>(ticks) / static_cast<double>(context.frameTicks)) +
           " frames";
}

} // namespace XPJ::RVX

#include "export/track_context.h"

#include "core/frame_rate.h"

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
                          .drop = counting.drop}};
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

ItemLocation LocationOfItem(const TrackContext& track, Ticks start, std::string_view clipName,
                            Ticks end)
{
    return {.sequence = track.sequence.sequence.GetProperty("Name"),
            .clip = clipName,
            .trackKind = track.type == MediaType::Video ? 1 : 2,
            .trackIndex = track.index,
            .time = FormatItemTime(track.sequence, start),
            .span = SpanOf(track.sequence, start, end)};
}

} // namespace XPJ::RVX

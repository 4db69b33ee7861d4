#include "import/track_context.h"

namespace XPJ {

namespace {

FrameSpan SpanOf(const SequenceTimecode& timecode, Frames start, Frames end)
{
    return {.start = start < 0 ? -1 : timecode.FrameOf(start),
            .end = end < 0 ? -1 : timecode.FrameOf(end),
            .first = timecode.first,
            .base = timecode.base,
            .drop = timecode.drop,
            .sequence = timecode.node};
}

} // namespace

ItemLocation LocationOfItem(const SequenceTimecode& timecode, std::string_view name,
                            const ItemPosition& position)
{
    return {.sequence = timecode.name,
            .clip = name,
            .trackKind = position.type == MediaType::Video ? 1 : 2,
            .trackIndex = position.trackIndex,
            .span = SpanOf(timecode, position.start, position.end)};
}

ItemLocation LocationOfItem(const TrackContext& track, std::string_view name, Frames start,
                            Frames end)
{
    return LocationOfItem(track.sequence.timecode, name, {track.type, track.index, start, end});
}

ItemLocation LocationOfIssue(const SequenceTimecode& timecode, std::string_view name,
                             const ItemPosition& position)
{
    ItemLocation location = LocationOfItem(timecode, name, position);
    location.time = timecode.TextOf(position.start);
    return location;
}

ItemLocation LocationOfIssue(const TrackContext& track, std::string_view name, Frames start,
                             Frames end)
{
    return LocationOfIssue(track.sequence.timecode, name, {track.type, track.index, start, end});
}

void AddItemIssue(const TrackContext& track, ConstHandle item, Frames start, ImportIssue kind)
{
    AddItemIssue(track.sequence.state, LocationOfIssue(track, item.GetProperty("name"), start),
                 kind);
}

} // namespace XPJ

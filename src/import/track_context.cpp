#include "import/track_context.h"

namespace XPJ {

ItemLocation LocationOfItem(const SequenceTimecode& timecode, std::string_view name,
                            const ItemPosition& position)
{
    return {.sequence = timecode.name,
            .clip = name,
            .trackKind = position.type == MediaType::Video ? 1 : 2,
            .trackIndex = position.trackIndex,
            .time = timecode.TextOf(position.start)};
}

ItemLocation LocationOfItem(const TrackContext& track, std::string_view name, Frames start)
{
    return LocationOfItem(track.sequence.timecode, name, {track.type, track.index, start});
}

void AddItemIssue(const TrackContext& track, ConstHandle item, Frames start, ImportIssue kind)
{
    AddItemIssue(track.sequence.state, LocationOfItem(track, item.GetProperty("name"), start),
                 kind);
}

} // namespace XPJ

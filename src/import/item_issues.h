// Issues at an item of a timeline.
#pragma once

#include "core/media_type.h"
#include "effects/effect_context.h"
#include "import/import_state.h"
#include "xmeml/sequences.h"

#include <string_view>

namespace XPJ {

// An item by its track, which counts from 0, and the edge, in units of edges, at which it starts.
struct ItemPosition {
    MediaType type = MediaType::Video;
    int trackIndex = 0;
    Frames start = 0;
};
ItemLocation LocationOfItem(const SequenceTimecode& timecode, std::string_view name,
                            const ItemPosition& position);

void AddItemIssue(const ImportState& state, const ItemLocation& location, ImportIssue kind,
                  std::string_view subject = {});

// Records an item, a clip of a bin or a sequence of which nothing could be made.
void AddSkipped(ImportState& state, const ItemLocation& location);

} // namespace XPJ

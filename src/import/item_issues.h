// Findings at a place in a timeline.
#pragma once

#include "core/ticks.h"
#include "effects/effect_context.h"
#include "import/import_state.h"
#include "xmeml/item_times.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// What tells a place in a `sequence`: its name, and the timecode of its frames. Read once, since a
// sequence with many markers is wide.
struct SequenceClock {
    std::string_view name = {};
    Ticks edges = kNtscFrameTicks;  // unit of item edges
    Ticks frames = kNtscFrameTicks; // a frame
    Frames first = 0;               // number of the first one
    std::int64_t base = 30;         // numbers a second
    bool drop = true;

    std::string TimecodeOf(Frames start) const;
};
SequenceClock ClockOf(const ImportState& state, ObjectHandle sequence);

// The place of an item that starts at `start`, in units of edges. `trackIndex` counts from 0.
ItemPlace PlaceOfItem(const SequenceClock& clock, ObjectHandle item, MediaType type, int trackIndex,
                      Frames start);

void AddItemIssue(ImportState& state, const ItemPlace& place, ImportIssue kind,
                  std::string_view subject = {});

// Notes an item, a clip of a bin or a sequence that nothing could be made of.
void AddSkipped(ImportState& state, const ItemPlace& place);

} // namespace XPJ

// The times of a track item, and what the speed of its clip makes of them.
#pragma once

#include "core/media_type.h"
#include "effects/time_remap.h"
#include "export/export_context.h"

#include <cstdint>

namespace XPJ::RVX {

// Numbers are in `unit`, those that are not named ticks.
struct ItemTiming {
    TimeUnit unit = TimeUnit::Frames;
    Ticks rate = kNtscFrameTicks; // ticks a frame: of its media, else of the sequence
    Ticks sequenceRate = kNtscFrameTicks;
    Ticks startDelta = 0; // ticks from an edge of the item to that of the transition there
    Ticks endDelta = 0;
    Ticks sourceOffset = 0; // from the times of the clip to those of what it shows
    double speed = 1.0;
    bool reverse = false;
    bool frameBlend = false;
    Ticks sourceLength = 0;                // exactly; 0: not stated
    bool infinite = false;                 // the source has no end of its own, such as a still
    std::int64_t originalDuration = 10000; // of the source
    std::int64_t duration = 0;             // of the source as the clip plays it
    double ratio = 1.0;                    // originalDuration / duration
    bool openInterchange = false;
};

// The same for the translation of speeds.
PlayedSpeed PlayedSpeedOf(const ItemTiming& timing);

// Writes `start` and `end`: -1 where a transition covers the edge, whose distance is kept. They
// count in the item's rate; an edge that is lost between its frames is written exactly as well. In
// open interchange they count in the sequence's rate; with the exact edges beside them they also
// mean that to a reader of this system, which takes the item's rate without them.
void WriteEdges(TrackItem item, ItemTiming& timing, ObjectHandle element);

// How far an edge is behind the frame at which it is written; 0 where it is written exactly as
// well.
Ticks LostBehindFrame(Ticks edge, const ItemTiming& timing);

// Takes speed, direction and blending from a VideoClip or AudioClip, and the source's length from
// the one that shows it.
void ReadSpeed(ConstHandle clip, ConstHandle shownClip, ItemTiming& timing);

// Writes `in`, `out` and their exact ticks. They include the transitions at the edges. Those of
// video count in what plays at the clip's speed; audio counts as if it played at 1, in open
// interchange only in its exact ticks.
void WriteRange(ConstHandle clip, MediaType type, const ItemTiming& timing, ObjectHandle element);

// Writes `duration`, and keeps it with `ratio`. Both are whole frames and their quotient is hardly
// ever the speed; in open interchange the ratio follows from the exact lengths.
void WriteDuration(ConstHandle clip, ItemTiming& timing, ObjectHandle element);

} // namespace XPJ::RVX

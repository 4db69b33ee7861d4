// Edges of items at transitions: documents omit them there, and they follow from where in the
// transition the cut is.
//
// A centered transition of 20 frames from 100 on, between two items of the sequence's rate:
//
//   | start 40, end -1 |==== 100..120 ====| start -1, end 200 |    stated
//     in 0, out 80                          in 10, out 110
//   | 40..110          |     cut 110      | 110..200          |    the edges
//     in 0, out 70                          in 20, out 110
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "tree/object.h"
#include "xmeml/item_times.h"

#include <string_view>
#include <vector>

namespace XPJ {

// What the `alignment` of a `transitionitem` states of its cut, and of the sides that it may have.
enum class CutPosition { Start, Middle, End };

struct TransitionAlignment {
    std::string_view name;
    CutPosition cut;
    bool hasOutgoing;
    bool hasIncoming;
};

// Null for an unknown name.
const TransitionAlignment* FindAlignment(std::string_view name);

// How the edges of a sequence's items are completed.
struct EdgeRules {
    Ticks sequenceTicks; // of a frame
    // A point that is stated exactly moves with its edge. To the letter it follows from the other
    // one where the transition lies beyond the cut, and a point between two frames is lost.
    bool openInterchange = false;
};

// The clips and generators of a `track` in its order, with the edges that its transitions imply.
// All edges count in the sequence's frames.
std::vector<ClipItem> ItemsOfTrack(ConstHandle track, const EdgeRules& rules, MediaType type);

// Those of all tracks of a `sequence`, by track.
struct SequenceItems {
    std::vector<std::vector<ClipItem>> video;
    std::vector<std::vector<ClipItem>> audio;
};
SequenceItems ItemsOfSequence(ConstHandle sequence, const EdgeRules& rules);

} // namespace XPJ

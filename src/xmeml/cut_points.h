// Edges of items at transitions: documents leave them out there, and they follow from where in the
// transition the cut is.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// What the `alignment` of a `transitionitem` says of its cut, and of the sides that it may have.
enum class CutPlace { Start, Middle, End };

struct TransitionAlignment {
    std::string_view name;
    CutPlace cut;
    bool hasOutgoing;
    bool hasIncoming;
};

// Null for an unknown name.
const TransitionAlignment* FindAlignment(std::string_view name);

// Writes the missing `start`s, `end`s and what hangs on them into the items of a `track`. After it
// all edges count in the sequence's frames, `sequenceTicks` each. To be run once.
void NormaliseTrack(ObjectHandle track, Ticks sequenceTicks);

// The same for every track of a `sequence`.
void NormaliseSequence(ObjectHandle sequence, Ticks sequenceTicks);

} // namespace XPJ

// Edges of items at transitions: documents leave them out there, and they follow from where in the
// transition the cut is.
#pragma once

#include "core/ticks.h"
#include "model/object.h"

namespace XPJ {

// Writes the missing `start`s, `end`s and what hangs on them into the items of a `track`. After it
// all edges count in the sequence's frames, `sequenceTicks` each. To be run once.
void NormaliseTrack(ObjectHandle track, Ticks sequenceTicks);

// The same for every track of a `sequence`.
void NormaliseSequence(ObjectHandle sequence, Ticks sequenceTicks);

} // namespace XPJ

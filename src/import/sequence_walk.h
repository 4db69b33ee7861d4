// The walk through what sequences refer to: all media and sequences that an item needs are there,
// and have their project items, before the sequence around it is filled.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Translates what the items of a `sequence` refer to into `parentItem`, then fills its Sequence and
// adds its project item there. Sequences that its items hold go first, in the same bin. One that
// was translated before, or whose translation is on its way, stays as it is.
void TranslateSequence(ImportState& state, ConstHandle sequence, ObjectHandle parentItem);

// Fills, into the root, the sequences and multiclips that items show and nothing has filled: those
// that only the angles of a multiclip lead to.
void TranslateShownSequences(ImportState& state, ObjectHandle rootItem);

} // namespace XPJ

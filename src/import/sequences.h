// The content of sequences.
#pragma once

#include "import/import_state.h"
#include "xmeml/cut_points.h"

namespace XPJ {

// The MasterClip around a new, empty Sequence for a `sequence`.
MasterClipHandle MakeSequenceMaster(ImportState& state, ConstHandle sequence);

// Fills the Sequence of the `master` of a `sequence` element, whose items are given with their
// edges. False if it was filled before or has no frame size.
bool FillSequence(ImportState& state, ConstHandle sequence, const SequenceItems& items,
                  MasterClipHandle master);

} // namespace XPJ

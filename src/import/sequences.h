// The content of sequences.
#pragma once

#include "import/import.h"
#include "xmeml/cut_points.h"

namespace XPJ {

// The MasterClip around a new, empty Sequence for a `sequence`.
BuiltMaster MakeSequenceMaster(Import& import, ConstHandle sequence);

// Fills the Sequence of the `master` of a `sequence` element, whose items are given with their
// edges. False if it was filled before or has no frame size.
bool FillSequence(Import& import, ConstHandle sequence, const SequenceItems& items,
                  BuiltMaster master);

} // namespace XPJ

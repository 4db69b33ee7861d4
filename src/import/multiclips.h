// Multiclips that are not collapsed: the master, and the Sequence behind it with a video and an
// audio track for each angle.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Records the active angle of a `multiclip`, and enters the master of an uncollapsed one.
void CollectMulticlip(ImportState& state, ConstHandle multiclip);

// Makes the project item of an element whose `multiclip` is not collapsed.
void TranslateMulticlipItem(ImportState& state, ConstHandle element, ObjectHandle parentItem);

// Fills the Sequence of an uncollapsed `multiclip`; masters that its angles bring along are shown
// in `parentItem`. False if it was filled before, or has no known frame size.
bool FillMulticlipSequence(ImportState& state, ConstHandle multiclip, ObjectHandle sequence,
                           ObjectHandle parentItem);

} // namespace XPJ

// Sequences: their content, and the project items that show them.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// True for a sequence that only wraps a still frame: its first video item has a
// `stillframeoffset`. Such a sequence becomes no sequence of the project.
bool IsStillSequence(ObjectHandle sequence);

// The MasterClip around a new, empty Sequence for a `sequence` met in the collect pass; null where
// none can be made.
ObjectHandle MasterOfCollectedSequence(ImportState& state, ObjectHandle sequence);

// Normalises the item times of a `sequence`, translates what its items refer to into `parentItem`,
// then fills its Sequence and adds its project item there.
void TranslateSequence(ImportState& state, ObjectHandle sequence, ObjectHandle parentItem);

} // namespace XPJ

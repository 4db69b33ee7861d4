// The Sequence behind a multiclip: a picture and a sound track for each angle.
#pragma once

#include "import/import_state.h"
#include "import/sequences.h"
#include "tree/object.h"

namespace XPJ {

// A multiclip without own `samplecharacteristics` has the rates of its angles.
SequenceRates RatesOfMulticlip(ObjectHandle multiclip);

// Sound `track`s of an angle's `clip`.
int AudioTracksOfAngle(ObjectHandle clip);

// Fills the Sequence of an uncollapsed `multiclip`; masters that its angles bring along are shown
// in `parentItem`. False if it was filled before, or the size of its frame can't be told.
bool FillMulticlipSequence(ImportState& state, ObjectHandle multiclip, ObjectHandle sequence,
                           ObjectHandle parentItem);

} // namespace XPJ

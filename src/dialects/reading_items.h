// Track items that writers state in other ways.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Completes items that repeat the id of an earlier one and state only what differs.
void CompleteRepeatedItems(DialectPass& pass);

// Restates freezes and items of speed 0 as the import knows them: a `sequence` around the frame.
//   clipitem(stillframeoffset 12, file) -> clipitem(sequence(clipitem(stillframeoffset 12, file)))
void HoldFrames(DialectPass& pass);

// Gives transitions without an `effect` the plain one of their track's type, and those of unknown
// alignment a cut in the middle.
void CompleteTransitions(DialectPass& pass);

} // namespace XPJ

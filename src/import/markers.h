// Markers of clips, track items, sequences and multiclips.
#pragma once

#include "core/ticks.h"
#include "import/import_state.h"
#include "tree/object.h"

namespace XPJ {

// A new `Markers` with the `marker`s of an element. Their frames count in the element's own `rate`,
// else in `defaultTicks` (ticks a frame); without either it stays empty.
ObjectHandle TranslateMarkers(Document& document, ConstHandle element, Ticks defaultTicks);

// On the markers of an element that state no time.
void RemarkOnMarkers(ImportState& state, ConstHandle element, const ItemLocation& location);

} // namespace XPJ

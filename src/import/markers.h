// Markers of clips, track items, sequences and multiclips.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

namespace XPJ {

// A new `Markers` with the `marker`s of an element. Their frames count in the element's own `rate`,
// else in `defaultTicks` (ticks a frame); without either it stays empty.
ObjectHandle TranslateMarkers(Document& document, ConstHandle element, Ticks defaultTicks);

} // namespace XPJ

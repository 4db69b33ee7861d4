// Markers of clips, track items and sequences.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Where the markers of an owner stand: the owner is a sequence or a ClipCore, `offset` is added to
// their times where the owner's source states no range.
struct MarkerPlace {
    ConstHandle owner;
    Ticks frameTicks = kNtscFrameTicks;
    Ticks offset = 0;
};

// Attaches a `marker` for each marker that has a place in the element.
void TranslateMarkers(ExportContext& context, const MarkerPlace& place, ObjectHandle element);

} // namespace XPJ::RVX

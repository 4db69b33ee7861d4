// Markers of clips, track items and sequences.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Where the markers of an owner, a sequence or a clip, are and how their times are written.
// `offset` is added to them, and `endOffset` to their ends again, where the owner's source states
// no range.
struct MarkerSource {
    ConstHandle owner;
    Ticks frameTicks = kNtscFrameTicks;
    TimeUnit unit = TimeUnit::Frames;
    Ticks offset = 0;
    Ticks endOffset = 0;
    const ItemLocation* location = nullptr; // of the owner, for remarks; null: they are entered
};

// Adds a `marker` for each marker that lies in what the element shows.
void TranslateMarkers(ExportContext& context, const MarkerSource& source, ObjectHandle element);

} // namespace XPJ::RVX

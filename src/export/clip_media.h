// The `media` of a `clip`: an item for its video and one for each channel of its audio.
#pragma once

#include "export/catalogs.h"

namespace XPJ::RVX {

// A `media`, empty for captions.
ObjectHandle TranslateClipMedia(ExportContext& context, Catalogs& catalogs, MasterClip masterClip,
                                const MasterSource& source);

// Writes `in` and `out` of a clip; a point at 0 or before is none.
void WriteClipRange(TimeUnit unit, ConstHandle core, Ticks frameTicks, ObjectHandle element);

// Adds the `sourcetrack` of an audio item: which channel it plays, from 1.
void WriteSourceTrack(Document& document, std::int64_t number, ObjectHandle element);

} // namespace XPJ::RVX

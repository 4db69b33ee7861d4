// Items of audio tracks.
#pragma once

#include "export/catalogs.h"
#include "export/track_context.h"

namespace XPJ::RVX {

// Translates one channel of an item, with the transitions at its edges, onto its track. The result
// is what the caller has to write in the item.
NestedSequence TranslateAudioItem(ExportContext& context, Catalogs& catalogs, TrackContext& track,
                                  const ItemPart& part);

} // namespace XPJ::RVX

// Items of video tracks.
#pragma once

#include "export/catalogs.h"
#include "export/track_context.h"

namespace XPJ::RVX {

// Translates an item, with the transitions at its edges, onto its track. An item without the parts
// that make one is skipped. The result is what the caller has to write in the item.
NestedSequence TranslateVideoItem(ExportContext& context, Catalogs& catalogs, TrackContext& track,
                                  TrackItem item);

} // namespace XPJ::RVX

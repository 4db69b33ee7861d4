// Slugs: gaps in the cut that are clips of their own, and the black clip that they show.
#pragma once

#include "import/import_state.h"
#include "import/streams.h"
#include "xmeml/item_times.h"

namespace XPJ {

// Master and project item for an element whose file is a slug; also the item of the black clip,
// beside the first slug.
void TranslateSlug(ImportState& state, const ClipItem& element, const FileUse& use,
                   ObjectHandle parentItem);

// The MasterClip of black, which the whole project shares; it has no project item of its own yet.
MasterClipHandle BlackMaster(ImportState& state);

} // namespace XPJ

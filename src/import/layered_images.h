// Layered stills: one file, and one Media and master for each layer.
#pragma once

#include "import/import_state.h"
#include "import/streams.h"
#include "xmeml/item_times.h"

namespace XPJ {

// Makes a master and a project item in `parentItem` for each layer of a file (see IsLayeredImage)
// that is not registered yet, in the order of the file.
void TranslateLayers(ImportState& state, const ClipItem& element, const FileUse& use,
                     ObjectHandle parentItem);

} // namespace XPJ

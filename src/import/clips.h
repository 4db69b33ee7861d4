// Browser clips: their masters, and the project items that show them.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Enters the masters of a `clip` with its files in the registry and under the clip's signatures.
void CollectClip(ImportState& state, ConstHandle clip);

// Makes the project items of a browser `clip` in `parentItem`. False if it shows nothing that is
// known.
bool TranslateClip(ImportState& state, ConstHandle clip, ObjectHandle parentItem);

} // namespace XPJ

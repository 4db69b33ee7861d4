// Master clips: which there are, and the project items that show them.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Enters the masters of a `clip` with its files in the registry and under the clip's signatures.
void CollectClip(ImportState& state, ObjectHandle clip);

// Makes the project items of a browser `clip` in `parentItem`. Gives the number of masters found.
int TranslateMasterClipItems(ImportState& state, ObjectHandle clip, ObjectHandle parentItem);

} // namespace XPJ

// The browser's tree: bins, and the clips and sequences in them.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Translates the children of an element, a `children` or one that lacks it, into `parentItem`, a
// RootProjectItem or BinProjectItem. False when cancelled.
bool TranslateEntries(ImportState& state, ConstHandle entries, ObjectHandle parentItem);

} // namespace XPJ

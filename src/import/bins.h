// The browser's tree: bins, and the clips and sequences in them.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Translates what a `children` element holds into `parentItem`, a RootProjectItem or
// BinProjectItem. False when cancelled.
bool TranslateChildren(ImportState& state, ObjectHandle children, ObjectHandle parentItem);

} // namespace XPJ

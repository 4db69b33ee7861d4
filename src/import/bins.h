// The browser's tree: bins, and the clips and sequences in them.
#pragma once

#include "import/import.h"

namespace XPJ {

// Translates the children of an element, a `children` or one that lacks it, into `parentItem`, a
// RootProjectItem or BinProjectItem. False when cancelled.
bool TranslateEntries(Import& import, ConstHandle entries, ObjectHandle parentItem);

} // namespace XPJ

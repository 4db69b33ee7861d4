// The Media of a `file`.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"
#include "xmeml/files.h"

namespace XPJ {

// A new Media without streams.
ObjectHandle MakeMediaOfFile(const ImportState& state, FileElement file);

} // namespace XPJ

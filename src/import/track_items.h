// Track items and the links between them.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Makes the `Link`s of every sequence from the recorded link groups.
void LinkPass(ImportState& state);

} // namespace XPJ

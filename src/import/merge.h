// Clips whose video and audio come from separate files, joined into one merged clip.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Joins the masters that carry the same merge id into one, shown by the last item of `rootItem`.
// Without a root item (null) nothing is added.
void MergePass(ImportState& state, ObjectHandle rootItem);

} // namespace XPJ

// The merged clip itself: a Sequence that holds the parts, and the master that shows it.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

#include <vector>

namespace XPJ {

// Builds the merged clip of masters that NoteComponent marked, in track order, and marks them as
// its parts. Null when none of them states picture or sound.
ObjectHandle BuildMergedMaster(ImportState& state, const std::vector<ObjectHandle>& components);

} // namespace XPJ

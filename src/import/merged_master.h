// The merged clip itself: a Sequence of the parts, and the master that shows it.
#pragma once

#include "import/import_state.h"

#include <vector>

namespace XPJ {

using MergeComponents = std::vector<MergeComponent>;

// Builds the merged clip of components in track order, and makes them its parts. Null when none of
// them has video or audio.
MasterClipHandle BuildMergedMaster(ImportState& state, const MergeComponents& components);

} // namespace XPJ

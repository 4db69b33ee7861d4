// The release of a tree in steps, with progress and cancellation.
#pragma once

#include "core/conversion_result.h"
#include "core/progress.h"
#include "tree/object.h"

namespace XPJ {

// Empties the child lists of all that `root` leads to, each node once, leaves before their parents.
// Cycles and shared nodes are fine. Gives kSuccess, or kAborted when cancelled on the way; what is
// left then goes with its document.
int ReleaseTree(ObjectHandle root, Progress& progress);

} // namespace XPJ

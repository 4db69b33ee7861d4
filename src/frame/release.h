// The release of a tree as the last stages of a conversion.
#pragma once

#include "core/conversion_result.h"
#include "core/progress.h"
#include "tree/object.h"

namespace XPJ {

// The nodes of a document are in its arena and go with it, all at once. What is left is to report
// them as released, so that a progress bar reaches its end, and to see a cancellation. Gives
// kSuccess or kAborted.
int ReleaseTree(const Document& document, Progress& progress);

} // namespace XPJ

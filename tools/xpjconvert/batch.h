// Many documents in one run: each is converted in a process of its own, some at a time.
#pragma once

#include "xpjconvert/documents.h"

#include <string>
#include <vector>

namespace XPJ {

// True when the options name several documents, or how to convert several.
bool IsBatch(const ToolOptions& options);

// Converts the documents of the options. Gives the exit status: that some failed, else that
// --fail-on applies to some, else success. After an interrupt what was converted is kept.
int ConvertBatch(const ToolOptions& options);

} // namespace XPJ

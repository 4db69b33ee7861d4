// The options that print something about documents without converting them.
#pragma once

#include "xpjconvert/options.h"

namespace XPJ {

// Runs the mode of the options and gives the exit status.
int RunInspection(const ToolOptions& options);

} // namespace XPJ

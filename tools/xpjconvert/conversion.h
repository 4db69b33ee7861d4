// One conversion from file to file, under a progress display, that Ctrl-C can stop.
#pragma once

#include "frame/console.h"
#include "xpjconvert/options.h"

namespace XPJ {

// The output appears under its name only when the result is kSuccess.
FileConversion RunConversion(Direction direction, const ToolOptions& options);

} // namespace XPJ

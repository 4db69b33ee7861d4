// What the tool tells about documents without converting them.
#pragma once

#include "xpjconvert/options.h"

#include <optional>

namespace XPJ {

// Does what `--inspect`, `--compare` or `--list-effects` asks for and gives the exit status;
// nothing when none of them is given.
std::optional<int> RunInspection(const ToolOptions& options);

} // namespace XPJ

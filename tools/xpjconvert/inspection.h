// The options that print something about documents without converting them.
#pragma once

#include "xpjconvert/options.h"

#include <optional>

namespace XPJ {

// Runs `--inspect`, `--compare` or `--list-effects` and gives the exit status; nothing when none of
// them is given.
std::optional<int> RunInspection(const ToolOptions& options);

} // namespace XPJ

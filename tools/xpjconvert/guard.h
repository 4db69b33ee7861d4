// The last place where an exception can end.
#pragma once

#include <functional>

namespace XPJ {

// The status that `run` gives. An exception becomes a line on the standard error, and its status.
int RunGuarded(const std::function<int()>& run);

} // namespace XPJ

// Where exceptions end that nothing else has caught.
#pragma once

#include <functional>

namespace XPJ {

// The status that `run` gives. An exception becomes a line on the standard error, and its status.
int RunGuarded(const std::function<int()>& run);

} // namespace XPJ

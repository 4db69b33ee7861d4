// Fields that the table of classes states no translation uses.
#pragma once

#include "core/name.h"

namespace XPJ {

// True when every row of that field, of whatever class, states a reason why it is not used.
bool IsUnusedProjectField(Name field);

} // namespace XPJ

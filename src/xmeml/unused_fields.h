// Fields that the table of elements states no translation uses.
#pragma once

#include "core/name.h"

namespace XPJ {

// True when every row of elements of that tag that has the field states a reason why it is not
// used.
bool IsUnusedField(Name tag, Name field);

} // namespace XPJ

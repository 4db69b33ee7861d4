// Fields that the table of classes states no translation uses.
#pragma once

#include "core/name.h"

#include <string_view>

namespace XPJ {

// True when every row of that field, of whatever class, states a reason why it is not used.
bool IsUnusedProjectField(Name field);

// True for a tag that some row writes or reads.
bool IsKnownProjectTag(std::string_view tag);

} // namespace XPJ

// Elements where the format has none.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Moves entries beside or in further `project`s, and directly in bins, into `children`; items
// beside `track`s into a track of their own.
void TakeInStrays(DialectPass& pass);

} // namespace XPJ

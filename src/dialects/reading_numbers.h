// Numbers in other notations.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Makes the decimal commas of effect parameters and keyframes points.
void ReadDecimalCommas(DialectPass& pass);

} // namespace XPJ

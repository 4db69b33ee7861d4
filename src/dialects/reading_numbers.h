// Numbers in other notations.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Makes the decimal commas of parameters and their keyframes points.
void ReadDecimalCommas(DialectPass& pass, const EffectPart& part);

} // namespace XPJ

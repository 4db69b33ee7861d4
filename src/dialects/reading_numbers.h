// Numbers in other notations, or beyond their range.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Makes the decimal commas of parameters and their keyframes points.
void ReadDecimalCommas(DialectPass& pass, const EffectPart& part);

// Limits the channels of colors to 0 to 255.
void LimitColors(DialectPass& pass, const EffectPart& part);

} // namespace XPJ

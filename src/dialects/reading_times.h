// Times that writers state in other ways.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Gives each `timecode` that states a `string` alone its `frame`.
void CountTimecodes(DialectPass& pass);

// Gives each item whose `in` and `out` count in the rate of its file that rate.
void CountInFileRate(DialectPass& pass);

} // namespace XPJ

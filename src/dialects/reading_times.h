// Times that writers state in other ways.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Gives each `timecode` that states a `string` alone its `frame`.
void CountTimecodes(DialectPass& pass);

// Gives each item whose `in` and `out` count in the rate of its file that rate.
void CountInFileRate(DialectPass& pass);

// The slope of a graph of variable speed at its out point is no speed of the clip.
void ReadSpeedGraphs(DialectPass& pass, const EffectPart& part);

} // namespace XPJ

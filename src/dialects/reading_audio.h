// Audio effects, as other programs mean them.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// The Gain filter counts in decibels. Where it has one value it is the gain of its clip; otherwise
// its values become the factors that the import takes them for.
//   0 dB is 1, -6.0206 dB is 0.5
void ReadGain(DialectPass& pass, const EffectPart& part);

// Keyframes of a pan run like its static value, from -1 on the left to 1 on the right, as they do
// in documents of this system, whose `authoringApp` they get.
void ReadPan(DialectPass& pass, const EffectPart& part);

} // namespace XPJ

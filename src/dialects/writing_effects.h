// Effects, as other programs read them.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// The one parameter of a pan is `pan`.
void NamePan(DialectPass& pass, const EffectPart& part);

// A value that is held to the next keyframe is repeated a frame before it:
//
//   of the project    frame 0, held at 10         frame 50, 80
//   written           frame 0, 10   frame 49, 10  frame 50, 80
void WriteSteps(DialectPass& pass, const EffectPart& part);

// The filter of a bypassed effect is off.
void SwitchOffBypassed(DialectPass& pass, const EffectPart& part);

// Removes a `filter` whose `effect` has neither name nor id.
void RemoveNameless(DialectPass& pass, const EffectPart& part);

} // namespace XPJ

// Effects, as other programs read them.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// The one parameter of a pan is `pan`.
void NamePans(DialectPass& pass);

// A value that is held to the next keyframe is repeated a frame before it:
//
//   of the project    frame 0, held at 10         frame 50, 80
//   written           frame 0, 10   frame 49, 10  frame 50, 80
void WriteSteps(DialectPass& pass);

// The filter of a bypassed effect is off.
void SwitchOffBypassed(DialectPass& pass);

} // namespace XPJ

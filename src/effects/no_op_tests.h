// Effects that stand in documents at their rest position and do nothing.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

// True when every parameter of `effect` that is there stands at the rest value of the effect of
// that `effectid` ("crop"). Anything animated is at work; an id without rest values never rests.
bool IsNoOp(std::string_view effectId, ObjectHandle effect);

// A Distort that leaves its corners where they are and changes nothing but the aspect.
bool IsAspectOnly(ObjectHandle distort);

} // namespace XPJ

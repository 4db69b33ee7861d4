// The look effect: a grading that documents name by its file and projects hold as a binary value.
//
// What this system exported comes back with the value itself and without a file.
#pragma once

#include "effects/effect_context.h"
#include "tree/object.h"

namespace XPJ {

// The component of a look effect; null, with an issue, when its file can't be opened. A file that
// is no look leaves its parameter without a value.
ObjectHandle MakeLookComponent(const EffectContext& context, ObjectHandle effect);

} // namespace XPJ

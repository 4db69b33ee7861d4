// The look effect: a grading that documents name by its file and projects hold as a binary value.
//
// What this system exported comes back with the value itself and without a file.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// False, with an issue, when the file of the look can't be opened. A file that is no look leaves
// its parameter without a value.
bool LookToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components);
void LookToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect);

} // namespace XPJ

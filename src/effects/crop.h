// Rules of Crop beside its row.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// A crop at its defaults becomes nothing.
bool CropToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components);
// The sides in the order of documents, with all the digits that the project has.
void CropToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect);

} // namespace XPJ

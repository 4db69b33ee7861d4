// Filters that cut a part out of the picture.
#pragma once

#include "export/effect_parts.h"

namespace XPJ::RVX {

void ExportCrop(const EffectSource& source, ObjectHandle effect);
void ExportFourPointMatte(const EffectSource& source, ObjectHandle effect);
void ExportEightPointMatte(const EffectSource& source, ObjectHandle effect);

} // namespace XPJ::RVX

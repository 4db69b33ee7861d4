// Filters that cut a part out of the picture.
#pragma once

#include "effects/xmeml_filter.h"

namespace XPJ::RVX {

void ExportCrop(const EffectSource& source, ObjectHandle effect);
void ExportFourPointMatte(const EffectSource& source, ObjectHandle effect);
void ExportEightPointMatte(const EffectSource& source, ObjectHandle effect);

} // namespace XPJ::RVX

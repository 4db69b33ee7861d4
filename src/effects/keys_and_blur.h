// Luma Key and Gaussian Blur.
#pragma once

#include "effects/xmeml_filter.h"

namespace XPJ::RVX {

void ExportLumaKey(const EffectSource& source, ObjectHandle effect);
void ExportGaussianBlur(const EffectSource& source, ObjectHandle effect);

} // namespace XPJ::RVX

// The Three-Way Color Corrector, which becomes the three-way corrector of documents approximately.
#pragma once

#include "effects/xmeml_filter.h"

namespace XPJ::RVX {

void ExportColorCorrector(const EffectSource& source, ObjectHandle effect);

} // namespace XPJ::RVX

// The Three-Way Color Corrector, which becomes the three-way corrector of documents approximately.
#pragma once

#include "export/effect_parts.h"

namespace XPJ::RVX {

void ExportColorCorrector(const EffectSource& source, ObjectHandle effect);

} // namespace XPJ::RVX

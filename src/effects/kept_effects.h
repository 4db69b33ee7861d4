// Effects that documents have no words for: their parameters are carried as the project states
// them, for the day on which the document comes back.
#pragma once

#include "effects/xmeml_filter.h"

namespace XPJ::RVX {

void ExportText(const EffectSource& source, ObjectHandle effect);
void ExportShape(const EffectSource& source, ObjectHandle effect);
void ExportLook(const EffectSource& source, ObjectHandle effect);
void ExportTransform(const EffectSource& source, ObjectHandle effect);

} // namespace XPJ::RVX

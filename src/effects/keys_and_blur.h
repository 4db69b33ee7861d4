// Rules of Gaussian Blur and Luma Key beside their rows.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// A project blurs all channels alike; a blur of single channels is not translated.
bool GaussianBlurToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                           Components& components);

// The threshold of a luma key, 0 to 100 in a project, on the bent scale of -100 to 100 of a
// document.
double LumaThreshold(double percent);

} // namespace XPJ

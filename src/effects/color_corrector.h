// The three-way corrector of documents and the host's Three-Way Color Corrector. Ten of the 134
// parameters of the project have one in documents. Both directions approximate, as the two don't
// work alike.
#pragma once

#include "effects/effect_row.h"

#include <vector>

namespace XPJ {

inline constexpr int kColorCorrectorParamCount = 134;
extern const ParamRow kColorCorrectorParams[kColorCorrectorParamCount];

// The parameters of documents that projects do not have; an export writes them all alike.
std::vector<XmemlParam> ColorCorrectorConstants();

// Always true, with an issue that the effect is to be reviewed.
bool ColorCorrectorToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                             Components& components);
void ColorCorrectorToXmeml(const EffectContext& context, const EffectRow& row,
                           ConstHandle component, ObjectHandle effect);

} // namespace XPJ

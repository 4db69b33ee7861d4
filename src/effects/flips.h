// Flop of documents, which becomes one or both of the project's two flips.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

inline constexpr ComponentNames kHorizontalFlip = {"VX.ORRN Horizontal Flip", "Horizontal Flip"};
inline constexpr ComponentNames kVerticalFlip = {"VX.ORRN Vertical Flip", "Vertical Flip"};

bool FlopToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components);

} // namespace XPJ

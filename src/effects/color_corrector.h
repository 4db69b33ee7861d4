// The three-way corrector of documents, which becomes the host's Three-Way Color Corrector. Ten of
// its 134 parameters have a source; they are approximate, as the two don't work alike.
#pragma once

#include "effects/effect_context.h"
#include "effects/effect_list.h"
#include "tree/object.h"

#include <vector>

namespace XPJ {

// The component, with an issue that it is to be reviewed. Never null.
ObjectHandle TranslateColorCorrector(const EffectContext& context, ObjectHandle effect);

// The parameters that take their value from an effect.
std::vector<ListedParameter> ListColorCorrector();

} // namespace XPJ

// Transitions: which one of the project stands for one of a document, and how it looks.
#pragma once

#include "effects/effect_context.h"
#include "tree/object.h"

namespace XPJ {

// The transition track item for the `effect` of a `transitionitem`, without place and neighbours.
// One that the project does not have becomes a dissolve or a cross fade, with a finding. Null for
// an effect without name and id.
ObjectHandle MakeVideoTransition(const EffectContext& context, ObjectHandle effect);
ObjectHandle MakeAudioTransition(const EffectContext& context, ObjectHandle effect);

} // namespace XPJ

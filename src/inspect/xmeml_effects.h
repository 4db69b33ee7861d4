// Filters and transitions of XML documents.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"

namespace XPJ::Inspection {

// The filters of a `clipitem` or `generatoritem`, and a generator's own effect. What a clip's speed
// is made of is in the item itself.
std::vector<Effect> ReadXmemlEffects(ConstHandle item, Ticks frameTicks);

// Those of a variable speed; empty for a constant one.
std::vector<Keyframe> ReadXmemlSpeedKeyframes(ConstHandle item, Ticks frameTicks);

Transition ReadXmemlTransition(ConstHandle transitionItem, Ticks frameTicks);

} // namespace XPJ::Inspection

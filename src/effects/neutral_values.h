// Effects that documents carry at their defaults, where they do nothing.
#pragma once

#include "effects/effect_row.h"
#include "tree/object.h"

#include <span>
#include <string_view>

namespace XPJ {

// True when every parameter of `effect` that has a value has one at which the effect, whose rows
// these are, changes nothing. What is animated is in use. `ignored` is a `parameterid` whose value
// may be any.
bool IsNeutral(std::span<const ParamRow> rows, ConstHandle effect, std::string_view ignored = {});

// Translates an effect that projects do not have: nothing is lost at its defaults.
bool DropNeutral(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                 Components& components);

} // namespace XPJ

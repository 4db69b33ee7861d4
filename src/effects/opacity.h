// Opacity and composite mode of an item.
#pragma once

#include "effects/effect_context.h"
#include "effects/effect_list.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// The Opacity component of an item. A null `effect` is an item that has a `compositeMode` only. A
// mode that has no counterpart is normal, with a finding.
ObjectHandle TranslateOpacity(const EffectContext& context, ObjectHandle effect,
                              std::string_view compositeMode);

EffectListing ListOpacity();

} // namespace XPJ

// The video effects that the converter knows, a row each, and the translation of those that are
// filters.
#pragma once

#include "effects/effect_row.h"
#include "tree/object.h"

#include <span>
#include <string_view>

namespace XPJ {

// In the order of the list of effects.
std::span<const EffectRow> VideoEffects();

// Appends the components that a filter becomes. Effects are found by their `effectid`, else by
// their `name`, which may be an id. False for one that is not translated.
bool FilterToProject(const EffectContext& context, ConstHandle effect, Components& components);

// The condition under which such an effect is translated; empty where there is none, or no row.
std::string_view ConditionOf(ConstHandle effect);

// True for an effect of documents, those of every item included, that changes nothing.
bool IsNeutralFilter(ConstHandle effect);

// Puts a `filter` on `element` for every component that documents have a counterpart for, and
// reports the others. Motion and Opacity, which only items have, are not among them. The location
// of the context has no track for the effects of a file.
void FiltersToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element);

} // namespace XPJ

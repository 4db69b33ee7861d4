// What a project can't hold of an effect that it has: remarks on parameters, on keyframes, and on
// filters that are off or act on a part of their clip. An effect that was not translated at all has
// an issue instead.
#pragma once

#include "effects/effect_row.h"
#include "tree/object.h"

#include <span>
#include <string_view>

namespace XPJ {

// The name of a `parameter` as the user sees it, else its id.
std::string_view ParameterName(ConstHandle parameter);

// True for a `parameter` with a value of its own, of any shape.
bool StatesValue(ConstHandle parameter);

// True if the value of a parameter and those of its keyframes all are neutral; false where the row
// names no neutral value. `row` may be null.
bool IsHarmless(const ParamRow* row, ConstHandle parameter);

// On the parameters that no row carries and that are not neutral, and on keyframes of the others.
// `carried` is a parameter that is carried whatever its id is; may be null.
void RemarkOnParameters(const EffectContext& context, std::span<const ParamRow> rows,
                        ConstHandle effect, ConstHandle carried = {});

// On one parameter that has no counterpart.
void RemarkOnLostParameter(const EffectContext& context, ConstHandle effect, ConstHandle parameter);

// On what the keyframes of a carried parameter lose.
void RemarkOnKeyframes(const EffectContext& context, ConstHandle effect, ConstHandle parameter);

// On the filters of an item, a clip or a track that are off or have no name. `isNeutral` is true
// for an effect that changes nothing.
void RemarkOnFilters(const EffectContext& context, ConstHandle owner,
                     bool (*isNeutral)(ConstHandle effect));

// On a filter that was translated and acts on a part of its item. Clips and tracks have no parts.
void RemarkOnRange(const EffectContext& context, ConstHandle owner, ConstHandle filter,
                   bool (*isNeutral)(ConstHandle effect));

// On an effect that is there more than once, unless it changes nothing.
void RemarkOnSecond(const EffectContext& context, ConstHandle effect,
                    bool (*isNeutral)(ConstHandle effect));

} // namespace XPJ

// One picture effect of a project: a VideoFilterComponent with its parameters.
#pragma once

#include "effects/effect_context.h"
#include "effects/effect_list.h"
#include "effects/parameters.h"
#include "tree/object.h"

#include <span>
#include <string_view>

namespace XPJ {

struct ComponentNames {
    std::string_view match;
    std::string_view display;
};

// A filter without parameters, with the switches that its `effect` states.
ObjectHandle MakeFilterComponent(Document& document, const ComponentNames& names,
                                 ObjectHandle effect);
// Opacity or Motion, which every item has, switched on.
ObjectHandle MakeIntrinsicComponent(Document& document, const ComponentNames& names);

// A parameter and where its value comes from.
struct ParamRow {
    int id;
    ParamKind kind;
    std::string_view name;
    std::string_view source; // a `parameterid`; empty where the value is always the same
    std::string_view value;  // without one in the effect; a point's is the centre
    std::string_view lower = {};
    std::string_view upper = {};
    int control = 0; // of a choice
};

// The parameter of a row, with value and keyframes of `parameter` (null: none).
ObjectHandle MakeRowParam(const EffectContext& context, const ParamRow& row,
                          ObjectHandle parameter);
// A filter whose parameters are all told by rows, in their order.
ObjectHandle MakeRowComponent(const EffectContext& context, const ComponentNames& names,
                              std::span<const ParamRow> rows, ObjectHandle effect);

// The rows that take their value from an effect.
std::vector<ListedParameter> ListRows(std::span<const ParamRow> rows);

} // namespace XPJ

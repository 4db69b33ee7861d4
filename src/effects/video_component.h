// One video effect of a project: a VideoFilterComponent.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

struct ComponentNames {
    std::string_view match = {};
    std::string_view display = {};
};

// A filter without parameters, with the switches that its `effect` states.
ObjectHandle MakeFilterComponent(Document& document, const ComponentNames& names,
                                 ConstHandle effect);
// Opacity or Motion, which every item has, switched on.
ObjectHandle MakeIntrinsicComponent(Document& document, const ComponentNames& names);

} // namespace XPJ

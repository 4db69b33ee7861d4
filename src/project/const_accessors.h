// The accessors of chains, parameters and transitions for handles that only read.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

ConstHandle TransitionCore(ConstHandle transition);
ConstHandle TransitionEdges(ConstHandle transition);
ConstHandle ChainOfOwner(ConstHandle owner);
ConstChildRange ComponentsOf(ConstHandle chain);
std::string_view ComponentMatchName(ConstHandle component);
ConstHandle ComponentCore(ConstHandle component);
ConstHandle ParamListOf(ConstHandle component);
ConstChildRange ParamsOf(ConstHandle component);
ConstHandle ComponentProperties(ConstHandle component);
ConstChildRange DependenciesOf(ConstHandle component);

} // namespace XPJ

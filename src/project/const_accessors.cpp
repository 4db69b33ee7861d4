#include "project/const_accessors.h"

namespace XPJ {

ConstHandle TransitionCore(ConstHandle transition)
{
    return transition.GetChild("TransitionTrackItem");
}

ConstHandle TransitionEdges(ConstHandle transition)
{
    return TransitionCore(transition).GetChild("TrackItem");
}

ConstHandle ChainOfOwner(ConstHandle owner)
{
    return FindPath(owner, {"ComponentOwner", "Components"});
}

ConstChildRange ComponentsOf(ConstHandle chain)
{
    return FindPath(chain, {"ComponentChain", "Components"}).GetChildren("Component");
}

std::string_view ComponentMatchName(ConstHandle component)
{
    return component.HasProperty("MatchName") ? component.GetProperty("MatchName")
                                              : component.GetProperty("FilterMatchName");
}

ConstHandle ComponentCore(ConstHandle component)
{
    const ConstHandle core = component.GetChild("Component");
    return core ? core : FindPath(component, {"AudioComponent", "Component"});
}

ConstHandle ParamListOf(ConstHandle component)
{
    return ComponentCore(component).GetChild("Params");
}

ConstChildRange ParamsOf(ConstHandle component)
{
    return ParamListOf(component).GetChildren("Param");
}

ConstHandle ComponentProperties(ConstHandle component)
{
    return FindPath(ComponentCore(component), {"Node", "Properties"});
}

ConstChildRange DependenciesOf(ConstHandle component)
{
    return component.GetChild("PluginDependencyMap").GetChildren("Dependency");
}

} // namespace XPJ

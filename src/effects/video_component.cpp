#include "effects/video_component.h"

#include "effects/parameters.h"

namespace XPJ {

namespace {

ObjectHandle MakeComponent(Document& document, const ComponentNames& names, bool intrinsic)
{
    const ObjectHandle component = document.NewObject("VideoFilterComponent");
    component.SetPropertyShared("MatchName", names.match);
    component.SetPropertyShared("DisplayName", names.display);
    component.SetPropertyShared("Intrinsic", intrinsic ? "true" : "false");
    component.SetPropertyShared("VideoFilterType", "2");
    component.SetPropertyShared("Bypass", "false");
    return component;
}

} // namespace

ObjectHandle MakeFilterComponent(Document& document, const ComponentNames& names,
                                 ConstHandle effect)
{
    const ObjectHandle component = MakeComponent(document, names, false);
    CopyBypass(effect, component);
    CopyExpanded(effect, component);
    return component;
}

ObjectHandle MakeIntrinsicComponent(Document& document, const ComponentNames& names)
{
    return MakeComponent(document, names, true);
}

} // namespace XPJ

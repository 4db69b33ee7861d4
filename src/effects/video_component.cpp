#include "effects/video_component.h"

#include "effects/keyframes.h"
#include "effects/values.h"

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

// A point of a filter keeps to the frame of its clip.
ObjectHandle MakePointParam(const EffectContext& context, const ParamRow& row,
                            ObjectHandle parameter)
{
    const Point point = StaticPoint(parameter);
    const ObjectHandle param =
        MakeParam(context.document, ParamKind::Point,
                  {.name = row.name,
                   .id = row.id,
                   .value = PointText({point.horiz + 0.5, point.vert + 0.5})});
    SetKeyframes(param, PointKeyframes(parameter, context.frameTicks));
    return param;
}

} // namespace

ObjectHandle MakeFilterComponent(Document& document, const ComponentNames& names,
                                 ObjectHandle effect)
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

ObjectHandle MakeRowParam(const EffectContext& context, const ParamRow& row, ObjectHandle parameter)
{
    if (row.kind == ParamKind::Point)
        return MakePointParam(context, row, parameter);
    const ObjectHandle param = MakeParam(context.document, row.kind,
                                         {.name = row.name,
                                          .id = row.id,
                                          .value = StaticValue(parameter, row.value),
                                          .lower = row.lower,
                                          .upper = row.upper,
                                          .control = row.control});
    SetKeyframes(param, ScalarKeyframes(parameter, context.frameTicks));
    return param;
}

ObjectHandle MakeRowComponent(const EffectContext& context, const ComponentNames& names,
                              std::span<const ParamRow> rows, ObjectHandle effect)
{
    const ObjectHandle component = MakeFilterComponent(context.document, names, effect);
    for (const ParamRow& row : rows) {
        const ObjectHandle parameter =
            row.source.empty() ? ObjectHandle() : FindParameter(effect, row.source);
        component.AddChild("Param", MakeRowParam(context, row, parameter));
    }
    return component;
}

std::vector<ListedParameter> ListRows(std::span<const ParamRow> rows)
{
    std::vector<ListedParameter> list;
    for (const ParamRow& row : rows)
        if (!row.source.empty())
            list.push_back({row.name, true});
    return list;
}

} // namespace XPJ

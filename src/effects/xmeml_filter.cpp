#include "effects/xmeml_filter.h"

#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "project/accessors.h"

namespace XPJ::RVX {

ConstHandle EffectSource::Param(std::string_view id) const
{
    return FindParam(ParamListOf(component), id);
}

void WriteEffectHead(const EffectHead& head, ObjectHandle effect)
{
    effect.SetPropertyShared("name", head.name);
    effect.SetPropertyShared("effectid", head.id);
    if (!head.category.empty())
        effect.SetPropertyShared("effectcategory", head.category);
    effect.SetPropertyShared("effecttype", head.type);
    effect.SetPropertyShared("mediatype", head.mediaType);
}

void WriteSwitches(ConstHandle component, ObjectHandle effect)
{
    effect.SetPropertyShared("velaBypass",
                             IsTrue(ComponentCore(component), "Bypass") ? "true" : "false");
    CopyProperty(ComponentProperties(component), "ECP.Filter.Expanded", effect, "velaExpanded");
}

ObjectHandle AddFilter(Document& document, const EffectHead& head, ObjectHandle item)
{
    const ObjectHandle effect = document.NewObject("effect");
    WriteEffectHead(head, effect);
    const ObjectHandle filter = document.NewObject("filter");
    filter.AddChild(effect);
    item.AddChild(filter);
    return effect;
}

ObjectHandle FindEffect(ObjectHandle item, std::string_view effectId)
{
    for (const ObjectHandle filter : item.GetChildren("filter"))
        if (const ObjectHandle effect = filter.GetChild("effect");
            effect.GetProperty("effectid") == effectId)
            return effect;
    return {};
}

ObjectHandle AddNumber(const EffectSource& source, const NumberRow& row, ObjectHandle effect)
{
    const ConstHandle param = source.Param(row.param);
    const double number = StartNumber(param, row.missing);
    const ObjectHandle parameter =
        AddParameter(source.document, effect,
                     {.id = row.id,
                      .name = row.name,
                      .min = row.min,
                      .max = row.max,
                      .value = NumberText(row.map ? row.map(number) : number)});
    WriteKeyframes(source.document, parameter, param.GetProperty("Keyframes"), source.frameTicks,
                   row.map);
    return parameter;
}

Point FromCentre(const Point& point)
{
    return {point.horiz - kFrameCentre.horiz, point.vert - kFrameCentre.vert};
}

ObjectHandle AddPoint(const EffectSource& source, const PointRow& row, ObjectHandle effect)
{
    const ConstHandle param = source.Param(row.param);
    const ObjectHandle parameter =
        AddParameter(source.document, effect, {.id = row.id, .name = row.name});
    AddPointValue(source.document, parameter, FromCentre(StartPoint(param, kFrameCentre)));
    WritePointKeyframes(source.document, parameter, param.GetProperty("Keyframes"),
                        source.frameTicks, FromCentre);
    return parameter;
}

} // namespace XPJ::RVX

#include "effects/effect_row.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>

namespace XPJ {

namespace {

// A point of a filter keeps to the frame of its clip.
ObjectHandle MakePointParam(const EffectContext& context, const ParamRow& row,
                            ConstHandle parameter)
{
    const Point point = StaticPoint(parameter);
    const ObjectHandle param = MakeParam(
        context.document, ParamKind::Point,
        {.name = row.name,
         .id = row.id,
         .value = PointText({point.horiz + kFrameCenter.horiz, point.vert + kFrameCenter.vert})});
    SetKeyframes(param, PointKeyframes(parameter, context.frameTicks));
    return param;
}

ObjectHandle AddPoint(const EffectContext& context, const ParamRow& row, ConstHandle param,
                      ObjectHandle effect)
{
    const ObjectHandle parameter = AddParameter(context.document, row.xmeml, {}, effect);
    AddPointValue(context.document, parameter, FromCenter(StartPoint(param, kFrameCenter)));
    WritePointKeyframes(context.document, parameter, param.GetProperty("Keyframes"),
                        context.frameTicks, FromCenter);
    return parameter;
}

ObjectHandle AddNumber(const EffectContext& context, const ParamRow& row, ConstHandle param,
                       ObjectHandle effect)
{
    const double number = StartNumber(param, ParseDouble(row.value));
    const ObjectHandle parameter =
        AddParameter(context.document, row.xmeml,
                     NumberText(row.toXmeml ? row.toXmeml(number) : number), effect);
    WriteKeyframes(context.document, parameter, param.GetProperty("Keyframes"), context.frameTicks,
                   row.toXmeml);
    return parameter;
}

// ---- Neutral values

constexpr Name kPointParts[] = {"horiz", "vert"};
constexpr Name kColorParts[] = {"alpha", "red", "green", "blue"};

// The text before the first `separator`, which is taken off `list` together with it.
std::string_view TakeFirst(std::string_view& list, char separator)
{
    const std::size_t end = std::min(list.find(separator), list.size());
    const std::string_view first = list.substr(0, end);
    list.remove_prefix(std::min(end + 1, list.size()));
    return first;
}

bool ArePartsNeutral(std::span<const Name> parts, std::string_view neutral, ConstHandle value)
{
    return !value || std::ranges::all_of(parts, [&](const Name& part) {
        return DoubleProperty(value, part) == ParseDouble(TakeFirst(neutral, ':'));
    });
}

bool IsNumberNeutral(std::string_view neutral, ConstHandle parameter)
{
    const std::string_view text = PlainValue(parameter);
    if (text.empty())
        return true;
    while (!neutral.empty())
        if (ParseDouble(text) == ParseDouble(TakeFirst(neutral, ' ')))
            return true;
    return false;
}

bool IsParameterNeutral(const ParamRow& row, ConstHandle parameter)
{
    const std::string_view neutral = row.xmeml.neutral;
    if (neutral.empty())
        return true;
    if (row.kind == ParamKind::Point)
        return ArePartsNeutral(kPointParts, neutral, parameter.GetChild("value"));
    if (row.kind == ParamKind::Color)
        return ArePartsNeutral(kColorParts, neutral, parameter.GetChild("value"));
    return IsNumberNeutral(neutral, parameter);
}

} // namespace

const ParamRow* FindParamRow(std::span<const ParamRow> rows, std::string_view parameterId)
{
    const auto row =
        std::ranges::find(rows, parameterId, [](const ParamRow& param) { return param.xmeml.id; });
    return row == rows.end() ? nullptr : &*row;
}

bool ParamsToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                     Components& components)
{
    const ObjectHandle component = MakeFilterComponent(context.document, row.project, effect);
    for (const ParamRow& param : row.params)
        if (param.id != 0) {
            const ConstHandle parameter =
                param.xmeml.id.empty() ? ConstHandle() : FindParameter(effect, param.xmeml.id);
            component.AddChild("Param", MakeRowParam(context, param, parameter));
        }
    components.push_back(component);
    return true;
}

void ParamsToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                   ObjectHandle effect)
{
    WriteEffectHead(row.xmeml, effect);
    for (const ParamRow& param : row.params)
        if (param.id != 0 && !param.xmeml.id.empty())
            AddRowParameter(context, param, component, effect);
        else if (!param.xmeml.value.empty())
            AddParameter(context.document, param.xmeml, param.xmeml.value, effect);
}

ObjectHandle MakeRowParam(const EffectContext& context, const ParamRow& row, ConstHandle parameter)
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

ConstHandle ParamOfRow(ConstHandle component, const ParamRow& row)
{
    return FindParam(component, IntToString(row.id));
}

ObjectHandle AddRowParameter(const EffectContext& context, const ParamRow& row,
                             ConstHandle component, ObjectHandle effect)
{
    const ConstHandle param = ParamOfRow(component, row);
    return row.kind == ParamKind::Point ? AddPoint(context, row, param, effect)
                                        : AddNumber(context, row, param, effect);
}

ObjectHandle AddParameter(Document& document, const XmemlParam& param, std::string_view value,
                          ObjectHandle effect)
{
    return AddParameter(
        document, effect,
        {.id = param.id, .name = param.name, .min = param.min, .max = param.max, .value = value});
}

Point FromCenter(const Point& point)
{
    return {point.horiz - kFrameCenter.horiz, point.vert - kFrameCenter.vert};
}

bool IsNeutral(std::span<const ParamRow> rows, ConstHandle effect, std::string_view ignored)
{
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        if (HasKeyframes(parameter))
            return false;
        const std::string_view id = parameter.GetProperty("parameterid");
        const ParamRow* const row = id.empty() ? nullptr : FindParamRow(rows, id);
        if (row && id != ignored && !IsParameterNeutral(*row, parameter))
            return false;
    }
    return true;
}

bool DropNeutral(const EffectContext& /*context*/, const EffectRow& row, ConstHandle effect,
                 Components& /*components*/)
{
    return IsNeutral(row.params, effect);
}

} // namespace XPJ

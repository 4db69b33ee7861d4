#include "effects/effect_row.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>
#include <cmath>

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

// A whole number of a document, of which a project keeps six digits of another scale.
double WithoutNoise(double number)
{
    constexpr double kNoise = 6e-4;
    const double whole = std::round(number);
    return std::abs(number - whole) < kNoise ? whole : number;
}

ObjectHandle AddNumber(const EffectContext& context, const ParamRow& row, ConstHandle param,
                       ObjectHandle effect)
{
    const bool isInverse = context.openInterchange && row.fromXmeml;
    const auto map = [&](double number) {
        const double mapped = row.toXmeml ? row.toXmeml(number) : number;
        return isInverse ? WithoutNoise(mapped) : mapped;
    };
    const double number = StartNumber(param, ParseDouble(row.value));
    const ObjectHandle parameter =
        AddParameter(context.document, row.xmeml, NumberText(map(number)), effect);
    WriteKeyframes(context.document, parameter, param.GetProperty("Keyframes"), context.frameTicks,
                   map);
    return parameter;
}

// ---- Parameters that documents do not have

std::string CarriedId(const ParamRow& row)
{
    return "vela" + IntToString(row.id);
}

// "20." and "20.00" as "20"; other texts as they are.
std::string_view WithoutZeros(std::string_view text)
{
    const std::size_t point = text.find('.');
    return point != text.npos && text.find_first_not_of('0', point + 1) == text.npos
               ? text.substr(0, point)
               : text;
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
            const ConstHandle parameter = param.xmeml.id.empty()
                                              ? FindCarried(context, param, effect)
                                              : FindParameter(effect, param.xmeml.id);
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
    AddAllCarried(context, row, component, effect);
}

ObjectHandle MakeRowParam(const EffectContext& context, const ParamRow& row, ConstHandle parameter)
{
    if (row.kind == ParamKind::Point)
        return MakePointParam(context, row, parameter);
    const bool isMapped = context.openInterchange && row.fromXmeml;
    std::string value(StaticValue(parameter, {}));
    if (isMapped && !value.empty())
        value = NumberText(row.fromXmeml(ParseDouble(value)));
    const ObjectHandle param = MakeParam(context.document, row.kind,
                                         {.name = row.name,
                                          .id = row.id,
                                          .value = value.empty() ? row.value : value,
                                          .lower = row.lower,
                                          .upper = row.upper,
                                          .control = row.control});
    SetKeyframes(param, isMapped ? MappedKeyframes(parameter, context.frameTicks, row.fromXmeml)
                                 : ScalarKeyframes(parameter, context.frameTicks));
    return param;
}

bool IsDefault(const ParamRow& row, std::string_view text)
{
    const std::string_view value = WithoutZeros(text);
    const std::string_view missing = WithoutZeros(row.value);
    return value.empty() || value == missing ||
           (missing.empty() && (value == "0" || value == "false"));
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

ConstHandle FindCarried(const EffectContext& context, const ParamRow& row, ConstHandle effect)
{
    return context.openInterchange ? FindParameter(effect, CarriedId(row)) : ConstHandle();
}

void AddCarried(const EffectContext& context, const ParamRow& row, ConstHandle param,
                ObjectHandle effect)
{
    const std::string_view value = StartText(param);
    const std::string_view keyframes = param.GetProperty("Keyframes");
    if (!context.openInterchange || (keyframes.empty() && IsDefault(row, value)))
        return;
    const std::string id = CarriedId(row);
    const ObjectHandle parameter =
        AddParameter(context.document, effect, {.id = id, .name = row.name, .value = value});
    for (const KeyframeRecord& record : ParseKeyframes(keyframes))
        AddKeyframe(context.document, parameter, DivTicks(record.time, context.frameTicks),
                    record.value);
}

void AddAllCarried(const EffectContext& context, const EffectRow& row, ConstHandle component,
                   ObjectHandle effect)
{
    if (!context.openInterchange)
        return;
    for (const ConstHandle param : ParamsOf(component)) {
        const auto found =
            std::ranges::find(row.params, IntProperty(param, "ParameterID"), &ParamRow::id);
        if (found != row.params.end() && found->id != 0 && found->xmeml.id.empty())
            AddCarried(context, *found, param, effect);
    }
}

Point FromCenter(const Point& point)
{
    return {point.horiz - kFrameCenter.horiz, point.vert - kFrameCenter.vert};
}

bool IsNeutralValue(const ParamRow& row, ConstHandle parameter)
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

bool IsNeutral(std::span<const ParamRow> rows, ConstHandle effect, std::string_view ignored)
{
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        if (HasKeyframes(parameter))
            return false;
        const std::string_view id = parameter.GetProperty("parameterid");
        const ParamRow* const row = id.empty() ? nullptr : FindParamRow(rows, id);
        if (row && id != ignored && !IsNeutralValue(*row, parameter))
            return false;
    }
    return true;
}

bool IsReturning(const EffectContext& context, ConstHandle effect)
{
    return context.openInterchange && HasValue(effect, "velaBypass");
}

bool DropNeutral(const EffectContext& /*context*/, const EffectRow& row, ConstHandle effect,
                 Components& /*components*/)
{
    return IsNeutral(row.params, effect);
}

} // namespace XPJ

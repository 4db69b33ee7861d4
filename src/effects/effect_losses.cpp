#include "effects/effect_losses.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/keyframes.h"
#include "effects/values.h"
#include "xmeml/rates.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

namespace XPJ {

namespace {

// ---- Parameters

// Parameters that only documents have are rows without a name in projects.
bool IsCarriedByRow(const ParamRow* row)
{
    return row && !row->name.empty();
}

bool IsCarriedUnderOwnId(const EffectContext& context, std::span<const ParamRow> rows,
                         ConstHandle effect, ConstHandle parameter)
{
    return context.openInterchange && std::ranges::any_of(rows, [&](const ParamRow& row) {
               return row.xmeml.id.empty() && FindCarried(context, row, effect) == parameter;
           });
}

// ---- Keyframes

bool IsOfRamp(ConstHandle keyframe)
{
    return IsTrue(keyframe, "velaRampStart") || IsTrue(keyframe, "velaRampEnd");
}

// The name of a curve alone changes nothing: its keyframes state the handles.
bool IsCurve(std::string_view interpolation)
{
    return !interpolation.empty() && !EqualsIgnoreCase(interpolation, "linear") &&
           !EqualsIgnoreCase(interpolation, "FCPCurve");
}

std::string_view InterpolationOf(ConstHandle node)
{
    return Trimmed(node.GetChild("interpolation").GetProperty("name"));
}

bool HasHandles(ConstHandle keyframe)
{
    for (const Name name : {Name("inbez"), Name("outbez"), Name("inscale"), Name("outscale")}) {
        const ConstHandle handle = keyframe.GetChild(name);
        if (DoubleProperty(handle, "horiz") != 0 || DoubleProperty(handle, "vert") != 0)
            return true;
    }
    return false;
}

std::size_t CountKeyframes(ConstHandle parameter)
{
    std::size_t count = 0;
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        count += IsRepeatedKeyframe(keyframe) ? 0 : 1;
    return count;
}

// ---- Filters

bool IsItem(ConstHandle owner)
{
    return owner.GetName() == "clipitem" || owner.GetName() == "generatoritem";
}

Frames FramesOf(ConstHandle node, Name key, Frames missing)
{
    return HasValue(node, key) ? Int64Property(node, key) : missing;
}

// Some editors count in frames of the media, others from the start of the item.
bool CoversItem(Frames start, Frames end, ConstHandle item)
{
    const Frames in = Int64Property(item, "in");
    const Frames out = Int64Property(item, "out");
    const bool isFromStart =
        start == 0 && (end >= SubtractTicks(out, in) || end >= FramesOf(item, "duration", out));
    return isFromStart || (start <= in && end >= out);
}

} // namespace

std::string_view ParameterName(ConstHandle parameter)
{
    const std::string_view name = parameter.GetProperty("name");
    return name.empty() ? parameter.GetProperty("parameterid") : name;
}

bool StatesValue(ConstHandle parameter)
{
    if (HasKeyframes(parameter) || !PlainValue(parameter).empty())
        return true;
    const ConstHandle value = parameter.GetChild("value");
    return HasValue(value, "horiz") || HasValue(value, "red") || value.HasChildren();
}

bool IsHarmless(const ParamRow* row, ConstHandle parameter)
{
    if (!row || row->xmeml.neutral.empty())
        return false;
    if (!IsNeutralValue(*row, parameter))
        return false;
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (!IsNeutralValue(*row, keyframe))
            return false;
    return true;
}

void RemarkOnParameters(const EffectContext& context, std::span<const ParamRow> rows,
                        ConstHandle effect, ConstHandle carried)
{
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        const std::string_view id = parameter.GetProperty("parameterid");
        const ParamRow* const row = id.empty() ? nullptr : FindParamRow(rows, id);
        if (parameter == carried || IsCarriedByRow(row)) {
            if (row && !row->animates && CountKeyframes(parameter) > 1)
                context.AddRemark(RemarkKind::KeyframesLost, effect, ParameterName(parameter));
            else
                RemarkOnKeyframes(context, effect, parameter);
        } else if (!IsHarmless(row, parameter) &&
                   !IsCarriedUnderOwnId(context, rows, effect, parameter)) {
            RemarkOnLostParameter(context, effect, parameter);
        }
    }
}

void RemarkOnLostParameter(const EffectContext& context, ConstHandle effect, ConstHandle parameter)
{
    if (StatesValue(parameter))
        context.AddRemark(RemarkKind::EffectParameterLost, effect, ParameterName(parameter));
}

void RemarkOnKeyframes(const EffectContext& context, ConstHandle effect, ConstHandle parameter)
{
    if (!HasKeyframes(parameter))
        return;
    const bool isCurve = IsCurve(InterpolationOf(parameter));
    std::size_t curves = 0;
    std::size_t empty = 0;
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe")) {
        if (!StatesValue(keyframe))
            ++empty;
        else if (!IsOfRamp(keyframe) &&
                 (isCurve || HasHandles(keyframe) || IsCurve(InterpolationOf(keyframe))))
            ++curves;
    }
    const std::string_view name = ParameterName(parameter);
    if (curves > 0 && CountKeyframes(parameter) > 1)
        context.AddRemark(RemarkKind::KeyframeInterpolation, effect, name, curves);
    if (empty > 0)
        context.AddRemark(RemarkKind::KeyframeWithoutValue, effect, name, empty);
}

void RemarkOnFilters(const EffectContext& context, ConstHandle owner,
                     bool (*isNeutral)(ConstHandle effect))
{
    for (const ConstHandle filter : owner.GetChildren("filter")) {
        const ConstHandle effect = filter.GetChild("effect");
        if (EffectName(effect).empty()) {
            if (effect.HasChild("parameter"))
                context.AddRemark(RemarkKind::FilterUnnamed);
        } else if (!ActiveEffect(filter) && !isNeutral(effect)) {
            context.AddRemark(RemarkKind::EffectDisabledLost, effect);
        }
    }
}

void RemarkOnRange(const EffectContext& context, ConstHandle owner, ConstHandle filter,
                   bool (*isNeutral)(ConstHandle effect))
{
    const ConstHandle effect = filter.GetChild("effect");
    const bool hasRange = HasValue(filter, "start") || HasValue(filter, "end");
    if (!hasRange || !IsItem(owner) || isNeutral(effect))
        return;
    const Frames start = std::max<Frames>(FramesOf(filter, "start", -1), 0);
    const Frames stated = FramesOf(filter, "end", -1);
    const Frames end = stated < 0 ? std::numeric_limits<Frames>::max() : stated;
    if (CoversItem(start, end, owner))
        return;
    const std::string range =
        IntToString(start) + " to " + (stated < 0 ? "the end" : IntToString(stated));
    context.AddRemark(RemarkKind::FilterRange, effect, range);
}

void RemarkOnSecond(const EffectContext& context, ConstHandle effect,
                    bool (*isNeutral)(ConstHandle effect))
{
    if (!isNeutral(effect))
        context.AddRemark(RemarkKind::EffectTwice, effect);
}

} // namespace XPJ

#include "inspect/xmeml_effects.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/keyframes.h"
#include "effects/time_remap.h"
#include "effects/values.h"
#include "inspect/effect_names.h"
#include "inspect/neutral_effects.h"
#include "inspect/titles.h"

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kSpeedEffect = kTimeRemap.xmeml.id;

// Points and colors have a child for each part.
std::string ValueText(ConstHandle node)
{
    std::string parts;
    for (const Name& key :
         {Name("horiz"), Name("vert"), Name("red"), Name("green"), Name("blue"), Name("alpha")})
        if (const std::string_view part = node.GetChild("value").GetProperty(key); !part.empty())
            parts.append(parts.empty() ? "" : ":").append(part);
    return PlainText(parts.empty() ? PlainValue(node) : std::string_view(parts));
}

std::vector<Parameter> ReadParameters(ConstHandle effect, Ticks frameTicks)
{
    std::vector<Parameter> parameters;
    for (const ConstHandle& node : effect.GetChildren("parameter")) {
        const std::string_view id = node.GetProperty("parameterid");
        Parameter parameter{PlainText(id.empty() ? node.GetProperty("name") : id), ValueText(node)};
        for (const ConstHandle& keyframe : node.GetChildren("keyframe"))
            if (!IsRepeatedKeyframe(keyframe))
                parameter.keyframes.push_back(
                    {MultiplyTicks(Int64Property(keyframe, "when"), frameTicks),
                     ValueText(keyframe)});
        parameters.push_back(std::move(parameter));
    }
    return parameters;
}

Effect ReadEffect(ConstHandle effect, Ticks frameTicks)
{
    const std::string_view id = effect.GetProperty("effectid");
    Effect read = NamedById(id, effect.GetProperty("name"));
    read.enabled = !IsTrue(effect, "velaBypass");
    read.isSource = id == kTextEffect || id == kGraphicShape.xmeml.id;
    read.parameters = ReadParameters(effect, frameTicks);
    return read;
}

// A gain of 1 is written as an effect without a name.
bool IsNothing(ConstHandle effect)
{
    return !HasValue(effect, "effectid") && !HasValue(effect, "name");
}

} // namespace

std::vector<Effect> ReadXmemlEffects(ConstHandle item, Ticks frameTicks)
{
    std::vector<Effect> effects;
    if (item.GetName() == "generatoritem" && item.HasChild("effect")) {
        effects.push_back(ReadEffect(item.GetChild("effect"), frameTicks));
        effects.back().isSource = true;
    }
    for (const ConstHandle& filter : item.GetChildren("filter")) {
        const ConstHandle effect = filter.GetChild("effect");
        if (IsNothing(effect) || effect.GetProperty("effectid") == kSpeedEffect)
            continue;
        Effect read = ReadEffect(effect, frameTicks);
        if (EqualsIgnoreCase(filter.GetProperty("enabled"), "FALSE"))
            read.enabled = false;
        if (!IsOfUntouchedClip(read, Family::Xmeml))
            effects.push_back(std::move(read));
    }
    return effects;
}

std::vector<Keyframe> ReadXmemlSpeedKeyframes(ConstHandle item, Ticks frameTicks)
{
    std::vector<Keyframe> keyframes;
    for (const ConstHandle& filter : item.GetChildren("filter")) {
        const ConstHandle effect = filter.GetChild("effect");
        if (effect.GetProperty("effectid") != kSpeedEffect ||
            ParseInt(PlainValue(FindParameter(effect, "variablespeed"))) <= 0)
            continue;
        const std::string text = SpeedKeyframes(FindParameter(effect, "graphdict"), frameTicks);
        for (const SpeedPoint& point : ParseSpeedKeyframes(text))
            keyframes.push_back({point.time, TickText(point.mediaTime)});
        break;
    }
    return keyframes;
}

Transition ReadXmemlTransition(ConstHandle transitionItem, Ticks frameTicks)
{
    const ConstHandle effect = transitionItem.GetChild("effect");
    const std::string_view alignment = transitionItem.GetProperty("alignment");
    return {.name = TransitionNameOfId(effect.GetProperty("effectid"), effect.GetProperty("name")),
            .start = MultiplyTicks(Int64Property(transitionItem, "start"), frameTicks),
            .end = MultiplyTicks(Int64Property(transitionItem, "end"), frameTicks),
            .alignment = alignment.empty() ? "center" : PlainText(alignment),
            .parameters = ReadParameters(effect, frameTicks)};
}

} // namespace XPJ::Inspection

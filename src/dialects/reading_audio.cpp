#include "dialects/reading_audio.h"

#include "core/numbers.h"
#include "core/text.h"
#include "dialects/filters.h"
#include "xmeml/flags.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kGainParameter = "Gain(dB)";

std::string FactorOfDecibels(std::string_view text)
{
    constexpr double kRange = 96; // of the filter, on either side
    const double decibels = std::clamp(ParseDouble(text), -kRange, kRange);
    return decibels == 0 ? "1.0" : DoubleToString(std::pow(10.0, decibels / 20));
}

// The node that has the value of a `parameter` or a `keyframe`: its child `value`, or itself.
ObjectHandle ValueNode(ObjectHandle node)
{
    const ObjectHandle child = node.GetChild("value");
    return Trimmed(child.GetProperty("value")).empty() ? node : child;
}

void ToFactor(ObjectHandle node)
{
    const ObjectHandle value = ValueNode(node);
    if (const std::string_view text = Trimmed(value.GetProperty("value")); !text.empty())
        value.SetProperty("value", FactorOfDecibels(text));
}

void ToFactors(ObjectHandle effect)
{
    ForEachParameter(effect, kGainParameter, [](const ObjectHandle& parameter) {
        ToFactor(parameter);
        for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
            ToFactor(keyframe);
    });
}

// The first Gain filter of an item that is on; null without one.
ObjectHandle FirstGain(ObjectHandle item)
{
    for (const ObjectHandle& filter : item.GetChildren("filter"))
        if (const ObjectHandle effect = filter.GetChild("effect");
            IsEnabled(filter) && kGainEffect.Matches(effect))
            return effect;
    return {};
}

// The one value of a Gain filter; empty for one that changes or is bypassed.
std::string_view StaticGain(ObjectHandle effect)
{
    std::string_view value;
    bool isStatic = !IsTrue(effect, "velaBypass");
    ForEachParameter(effect, kGainParameter, [&](const ObjectHandle& parameter) {
        value = Trimmed(ValueNode(parameter).GetProperty("value"));
        isStatic = isStatic && !parameter.HasChild("keyframe");
    });
    return isStatic ? value : std::string_view();
}

} // namespace

void ReadGains(DialectPass& pass)
{
    NodeSet gainsOfClips;
    for (const ItemPart& part : pass.Parts().items) {
        if (part.type != MediaType::Audio || !part.hasFilters)
            continue;
        const ObjectHandle effect = FirstGain(part.item);
        if (!HasValue(part.item, "velaGain"))
            if (const std::string_view value = StaticGain(effect); !value.empty())
                part.item.SetProperty("velaGain", FactorOfDecibels(value));
        if (HasValue(part.item, "velaGain"))
            gainsOfClips.Insert(effect);
    }
    ForEachFilter(pass.Parts(), [&](const ObjectHandle& filter) {
        const ObjectHandle effect = filter.GetChild("effect");
        if (kGainEffect.Matches(effect) && !gainsOfClips.Contains(effect))
            ToFactors(effect);
    });
}

void ReadPans(DialectPass& pass)
{
    ForEachFilter(pass.Parts(), [](const ObjectHandle& filter) {
        const ObjectHandle effect = filter.GetChild("effect");
        if (kPanEffect.Matches(effect))
            for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
                parameter.SetPropertyShared("authoringApp", "VelaPro");
    });
}

} // namespace XPJ

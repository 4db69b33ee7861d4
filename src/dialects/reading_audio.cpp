#include "dialects/reading_audio.h"

#include "core/numbers.h"
#include "core/text.h"
#include "dialects/filters.h"
#include "xmeml/flags.h"
#include "xmeml/tracks.h"

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

// True when the filter is the gain of its clip.
bool IsGainOfClip(const EffectPart& part)
{
    if (part.type != MediaType::Audio || !IsTrackItem(part.owner) ||
        FirstGain(part.owner) != part.effect)
        return false;
    if (!HasValue(part.owner, "velaGain"))
        if (const std::string_view value = StaticGain(part.effect); !value.empty())
            part.owner.SetProperty("velaGain", FactorOfDecibels(value));
    return HasValue(part.owner, "velaGain");
}

} // namespace

void ReadGain(DialectPass&, const EffectPart& part)
{
    if (kGainEffect.Matches(part.effect) && !IsGainOfClip(part))
        ToFactors(part.effect);
}

void ReadPan(DialectPass&, const EffectPart& part)
{
    if (kPanEffect.Matches(part.effect))
        for (const ObjectHandle& parameter : part.effect.GetChildren("parameter"))
            parameter.SetPropertyShared("authoringApp", "VelaPro");
}

} // namespace XPJ

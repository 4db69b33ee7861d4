#include "inspect/neutral_effects.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/audio_filters.h"
#include "effects/opacity.h"
#include "effects/title_reader.h"
#include "inspect/effect_facts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace XPJ::Inspection {

namespace {

// Numbers have six digits; on their way through other units and single precision they lose some of
// the last ones.
constexpr double kRounding = 5e-5;      // of the number
constexpr double kLeastRounding = 1e-6; // of numbers near 0

constexpr double kTurn = 360;

bool IsNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789.+-e") == text.npos &&
           text.find_first_of("0123456789") != text.npos;
}

bool IsSameNumber(double a, double b)
{
    const double largest = std::max(std::abs(a), std::abs(b));
    return std::abs(a - b) <= std::max(largest * kRounding, kLeastRounding);
}

bool IsSamePart(std::string_view a, std::string_view b)
{
    return a == b || EqualsIgnoreCase(a, b) ||
           (IsNumber(a) && IsNumber(b) && IsSameNumber(ParseDouble(a), ParseDouble(b)));
}

bool IsOneOf(const std::vector<std::string>& values, std::string_view value)
{
    return std::ranges::any_of(values,
                               [&](const std::string& one) { return IsSameValue(one, value); });
}

// A parameter without neutral values counts by its default.
bool IsNeutralParameter(const Effect& effect, Family family, const Parameter& parameter)
{
    const ParameterFacts* const facts = FindFacts(effect.kind, family, parameter.name);
    const std::optional<std::string_view> value = StillValue(parameter);
    return facts &&
           (facts->isOfItem ||
            (value && IsOneOf(facts->neutral.empty() ? facts->missing : facts->neutral, *value)));
}

bool Decides(const Effect& effect, Family family, const Parameter& parameter)
{
    const ParameterFacts* const facts = FindFacts(effect.kind, family, parameter.name);
    const std::optional<std::string_view> value = StillValue(parameter);
    return facts && facts->decides && value && IsOneOf(facts->neutral, *value);
}

} // namespace

bool IsNeutral(const Effect& effect, Family family)
{
    const auto isDefault = [&](const Parameter& parameter) {
        return IsDefault(effect, family, parameter);
    };
    if (!effect.enabled && std::ranges::all_of(effect.parameters, isDefault))
        return true;
    if (!HasNeutralValues(effect.kind, family))
        return false;
    const auto isNeutral = [&](const Parameter& parameter) {
        return IsNeutralParameter(effect, family, parameter);
    };
    const auto decides = [&](const Parameter& parameter) {
        return Decides(effect, family, parameter);
    };
    return std::ranges::all_of(effect.parameters, isNeutral) ||
           std::ranges::any_of(effect.parameters, decides);
}

bool IsOfUntouchedClip(const Effect& effect, Family family)
{
    return (effect.kind == kOpacity.name || effect.kind == kAudioLevels.name ||
            effect.kind == kAudioPan.name) &&
           IsNeutral(effect, family);
}

bool IsAspectOnly(const Effect& distort)
{
    return std::ranges::all_of(distort.parameters, [&](const Parameter& parameter) {
        return parameter.name == "aspect" || IsNeutralParameter(distort, Family::Xmeml, parameter);
    });
}

bool IsScaleOnly(const Effect& motion, Family family)
{
    return std::ranges::all_of(motion.parameters, [&](const Parameter& parameter) {
        return EqualsIgnoreCase(parameter.name, "scale") || parameter.name == "Scale Width" ||
               IsNeutralParameter(motion, family, parameter);
    });
}

bool IsDefault(const Effect& effect, Family family, const Parameter& parameter)
{
    const std::optional<std::string_view> value = StillValue(parameter);
    if (!value)
        return false;
    const ParameterFacts* const facts = FindFacts(effect.kind, family, parameter.name);
    return value->empty() ||
           (facts && (IsOneOf(facts->missing, *value) || IsOneOf(facts->neutral, *value)));
}

bool IsOfItem(const Effect& effect, Family family, const Parameter& parameter)
{
    if (effect.isSource && IsTextOrFont(parameter.name))
        return true;
    const ParameterFacts* const facts = FindFacts(effect.kind, family, parameter.name);
    return facts && facts->isOfItem;
}

std::optional<std::string_view> StillValue(const Parameter& parameter)
{
    if (parameter.keyframes.empty())
        return parameter.value;
    const std::string& first = parameter.keyframes.front().value;
    const bool isStill = std::ranges::all_of(parameter.keyframes, [&](const Keyframe& keyframe) {
        return IsSameValue(keyframe.value, first);
    });
    return isStill ? std::optional<std::string_view>(first) : std::nullopt;
}

bool IsSameValue(std::string_view a, std::string_view b)
{
    while (true) {
        const std::size_t endA = std::min(a.find(':'), a.size());
        const std::size_t endB = std::min(b.find(':'), b.size());
        if (!IsSamePart(a.substr(0, endA), b.substr(0, endB)))
            return false;
        if (endA == a.size() || endB == b.size())
            return endA == a.size() && endB == b.size();
        a.remove_prefix(endA + 1);
        b.remove_prefix(endB + 1);
    }
}

bool IsSameStillValue(const Effect& effect, Family family, const Parameter& parameter,
                      std::string_view a, std::string_view b)
{
    if (IsSameValue(a, b))
        return true;
    const ParameterFacts* const facts = FindFacts(effect.kind, family, parameter.name);
    return facts && facts->isAngle && IsNumber(a) && IsNumber(b) &&
           std::abs(std::remainder(ParseDouble(a) - ParseDouble(b), kTurn)) <= kTurn * kRounding;
}

} // namespace XPJ::Inspection

#include "inspect/effect_names.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/effect_list.h"
#include "effects/values.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

std::string OwnName(std::string_view name, std::string_view id)
{
    return UnescapeXML(name.empty() ? id : name);
}

// Of the effects or of the transitions. What has no name for people goes by its own.
std::string NameOfId(bool isTransition, std::string_view effectId, std::string_view name)
{
    for (const EffectListing& row : KnownEffects())
        if (row.isTransition == isTransition && !row.userName.empty() && !effectId.empty() &&
            effectId == row.effectId)
            return std::string(row.userName);
    return OwnName(name, effectId);
}

std::string NameOfMatch(bool isTransition, std::string_view matchName, std::string_view displayName)
{
    for (const EffectListing& row : KnownEffects())
        if (row.isTransition == isTransition && !row.userName.empty() && !row.matchName.empty() &&
            matchName.starts_with(row.matchName))
            return std::string(row.userName);
    return OwnName(displayName, matchName);
}

bool IsOneOf(std::string_view values, std::string_view value)
{
    while (!values.empty()) {
        const std::size_t end = std::min(values.find(' '), values.size());
        if (values.substr(0, end) == value)
            return true;
        values.remove_prefix(std::min(end + 1, values.size()));
    }
    return false;
}

bool HasNeutralValue(const EffectListing& row, const Parameter& parameter)
{
    return std::ranges::any_of(row.neutralValues, [&](const NeutralValue& neutral) {
        return neutral.parameter == parameter.name && IsOneOf(neutral.values, parameter.value);
    });
}

bool IsStill(const Parameter& parameter)
{
    return std::ranges::all_of(parameter.keyframes, [&](const Keyframe& keyframe) {
        return keyframe.value == parameter.value;
    });
}

// Longer texts are data, not text for people.
constexpr std::size_t kLongestValue = 64;

bool IsNumber(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    const auto isPart = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
    const auto end =
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(sign), text.end(), isPart);
    return end == text.end() && text.size() > sign && std::count(text.begin(), text.end(), '.') < 2;
}

std::string PlainPart(std::string_view part)
{
    return IsNumber(part) ? NumberText(ParseDouble(part)) : std::string(part);
}

} // namespace

std::string EffectNameOfId(std::string_view effectId, std::string_view name)
{
    return NameOfId(false, effectId, name);
}

std::string EffectNameOfMatch(std::string_view matchName, std::string_view displayName)
{
    return NameOfMatch(false, matchName, displayName);
}

std::string TransitionNameOfId(std::string_view effectId, std::string_view name)
{
    return NameOfId(true, effectId, name);
}

std::string TransitionNameOfMatch(std::string_view matchName, std::string_view displayName)
{
    return NameOfMatch(true, matchName, displayName);
}

bool IsNeutral(const Effect& effect)
{
    // The volume of a clip and its gain have one name.
    const std::vector<EffectListing>& known = KnownEffects();
    const auto isOfEffect = [&](const EffectListing& row) {
        return row.userName == effect.name && !row.neutralValues.empty();
    };
    const auto isNeutral = [&](const Parameter& parameter) {
        return IsStill(parameter) && std::ranges::any_of(known, [&](const EffectListing& row) {
                   return isOfEffect(row) && HasNeutralValue(row, parameter);
               });
    };
    return std::ranges::any_of(known, isOfEffect) &&
           std::ranges::all_of(effect.parameters, isNeutral);
}

std::string PlainText(std::string_view value)
{
    const std::string text = UnescapeXML(Trimmed(value));
    if (text.size() > kLongestValue)
        return fmt::format("{} characters, checksum {}", text.size(), BlobChecksum(text));
    std::string plain;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t to = std::min(text.find(':', from), text.size());
        plain += PlainPart(std::string_view(text).substr(from, to - from));
        if (to < text.size())
            plain += ':';
        from = to + 1;
    }
    return plain;
}

} // namespace XPJ::Inspection

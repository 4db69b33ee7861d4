#include "inspect/effect_names.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/values.h"

#include <algorithm>
#include <span>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

struct NameRow {
    std::string_view name;
    std::string_view effectId;
    std::string_view matchName; // or how it begins: sound effects have one for each channel type
};

// What is not here has the same name in both families.
constexpr NameRow kEffectNames[] = {
    {"Motion", "basic", "KX.ORRN Motion"},
    {"Opacity", "opacity", "KX.ORRN Opacity"},
    {"Distort", "deformation", ""},
    {"Crop", "crop", "KX.ORRN AECrop"},
    {"Volume", "audiolevels", "Internal Volume"},
    {"Volume", "{61756678, 4761696e, 4b657947}", ""}, // "Gain"
    {"Pan", "audiopan", ""},
    {"Flop", "Flop", "VX.ORRN Horizontal Flip"},
    {"Flop", "", "VX.ORRN Vertical Flip"},
    {"Low Pass", "{61756678, 4c506173, 4b657947}", "Internal Lowpass"},
    {"High Pass", "{61756678, 48506173, 4b657947}", "Internal Highpass"},
    {"Band Pass", "{61756678, 42506173, 4b657947}", "Internal Bandpass"},
};

constexpr NameRow kTransitionNames[] = {
    {"Cross Dissolve", "Cross Dissolve", "KX.ORRN Cross Dissolve New"},
    {"Cross Dissolve", "", "ORRN Cross Dissolve"},
    {"Edge Wipe", "Edge Wipe", "ORRN Wipe"},
    {"Dip to Color", "Dip to Color Dissolve", "ORRN Dip To White"},
    {"Dip to Color", "", "ORRN Dip To Black"},
    {"Cross Fade (+3dB)", "KGAudioTransCrossFade3dB", "Constant Power"},
    {"Cross Fade (0dB)", "KGAudioTransCrossFade0dB", "Constant Gain"},
    {"Exponential Fade", "KGAudioTransCrossFadeExponential", "Exponential Fade"},
};

std::string OwnName(std::string_view name, std::string_view id)
{
    return UnescapeXML(name.empty() ? id : name);
}

std::string NameOfId(std::span<const NameRow> rows, std::string_view effectId,
                     std::string_view name)
{
    for (const NameRow& row : rows)
        if (!effectId.empty() && effectId == row.effectId)
            return std::string(row.name);
    return OwnName(name, effectId);
}

std::string NameOfMatch(std::span<const NameRow> rows, std::string_view matchName,
                        std::string_view displayName)
{
    for (const NameRow& row : rows)
        if (!row.matchName.empty() && matchName.starts_with(row.matchName))
            return std::string(row.name);
    return OwnName(displayName, matchName);
}

// Values at which a parameter of an effect changes nothing. A parameter may have several rows; all
// of those that an effect has must be here.
constexpr struct {
    std::string_view effect, parameter, value;
} kResting[] = {
    {"Volume", "level", "1"},   // XML: a factor
    {"Volume", "Level", "0.5"}, // project: 1 is twice the level
    {"Volume", "Bypass", "false"},
    {"Volume", "Bypass", "0"},
    {"Pan", "pan", "0"},   // XML: -1 is left, 1 is right
    {"Pan", "Pan", "0.5"}, // project: 0 is left, 1 is right
    {"Opacity", "opacity", "100"},
    {"Opacity", "Opacity", "100"},
    {"Opacity", "Blend Mode", "18"}, // normal, in the host's two lists of modes
    {"Opacity", "Blend Mode", "0"},
};

bool IsResting(std::string_view effect, std::string_view parameter, std::string_view value)
{
    return std::ranges::any_of(kResting, [&](const auto& row) {
        return row.effect == effect && row.parameter == parameter && row.value == value;
    });
}

// Longer texts are data, not words.
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
    return NameOfId(kEffectNames, effectId, name);
}

std::string EffectNameOfMatch(std::string_view matchName, std::string_view displayName)
{
    return NameOfMatch(kEffectNames, matchName, displayName);
}

std::string TransitionNameOfId(std::string_view effectId, std::string_view name)
{
    return NameOfId(kTransitionNames, effectId, name);
}

std::string TransitionNameOfMatch(std::string_view matchName, std::string_view displayName)
{
    return NameOfMatch(kTransitionNames, matchName, displayName);
}

bool IsAtRest(const Effect& effect)
{
    const auto isResting = [&](const Parameter& parameter) {
        return IsResting(effect.name, parameter.name, parameter.value) &&
               std::ranges::all_of(parameter.keyframes, [&](const Keyframe& keyframe) {
                   return keyframe.value == parameter.value;
               });
    };
    const bool mayRest =
        std::ranges::any_of(kResting, [&](const auto& row) { return row.effect == effect.name; });
    return mayRest && std::ranges::all_of(effect.parameters, isResting);
}

std::string PlainForm(std::string_view value)
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

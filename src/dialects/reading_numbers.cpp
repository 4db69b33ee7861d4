#include "dialects/reading_numbers.h"

#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace XPJ {

namespace {

constexpr ValuesByName<bool>::Row kNumberRows[] = {
    {"horiz", true}, {"value", true}, {"valuemax", true}, {"valuemin", true}, {"vert", true},
};
constexpr std::size_t kShortest = 3; // "0,5"

// "-0,5": digits on both sides of one comma.
bool HasDecimalComma(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789";
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    const std::size_t comma = digits.find(',');
    return comma != digits.npos && comma > 0 && comma + 1 < digits.size() &&
           digits.find_first_not_of(kDigits) == comma &&
           digits.find_first_not_of(kDigits, comma + 1) == digits.npos;
}

// The words of a title and the names of fonts may look like numbers.
bool IsText(ConstHandle parameter)
{
    const std::string_view id = parameter.GetProperty("parameterid");
    return id.starts_with("str") || id.starts_with("font");
}

// Of the parameter itself, a keyframe of it, or a point in one of them.
void Restate(ObjectHandle node, ConstHandle parameter)
{
    static const ValuesByName<bool> kIsNumber(kNumberRows);
    for (const Property& property : node.Properties()) {
        if (!kIsNumber[property.name] || property.valueSize < kShortest)
            continue;
        const std::string_view value = Trimmed(property.Value());
        if (!HasDecimalComma(value) || IsText(parameter))
            continue;
        std::string number(value);
        std::ranges::replace(number, ',', '.');
        node.SetProperty(property.name.AsName(), number);
    }
}

void RestateValues(ObjectHandle node, ConstHandle parameter)
{
    Restate(node, parameter);
    for (const ObjectHandle& value : node.GetChildren("value"))
        Restate(value, parameter);
}

// Of a `value`. Sizes and points have none of these.
void LimitChannels(ObjectHandle value)
{
    for (const Name key : {Name("red"), Name("green"), Name("blue"), Name("alpha")}) {
        if (!HasValue(value, key))
            continue;
        const int channel = IntProperty(value, key);
        if (const int limited = std::clamp(channel, 0, 255); limited != channel)
            value.SetProperty(key, IntToString(limited));
    }
}

// Calls `restate` with each parameter of an effect, and with each of its keyframes.
template <class Function>
void ForEachHolder(const EffectPart& part, const Function& restate)
{
    for (const ObjectHandle& parameter : part.effect.GetChildren("parameter")) {
        restate(parameter, parameter);
        for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
            restate(keyframe, parameter);
    }
}

} // namespace

void ReadDecimalCommas(DialectPass&, const EffectPart& part)
{
    ForEachHolder(part, RestateValues);
}

void LimitColors(DialectPass&, const EffectPart& part)
{
    ForEachHolder(part, [](const ObjectHandle& holder, ConstHandle) {
        for (const ObjectHandle& value : holder.GetChildren("value"))
            LimitChannels(value);
    });
}

} // namespace XPJ

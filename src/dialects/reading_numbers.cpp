#include "dialects/reading_numbers.h"

#include "core/text.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace XPJ {

namespace {

constexpr Name kNumbers[] = {"value", "valuemin", "valuemax", "horiz", "vert"};

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

void Restate(ObjectHandle node)
{
    for (const Property& property : node.Properties()) {
        if (property.Value().find(',') == std::string_view::npos)
            continue;
        const Name* const name =
            std::ranges::find(kNumbers, property.NameView(), [](Name n) { return n.View(); });
        if (name == std::end(kNumbers) || !HasDecimalComma(Trimmed(property.Value())))
            continue;
        std::string number(Trimmed(property.Value()));
        std::ranges::replace(number, ',', '.');
        node.SetProperty(*name, number);
    }
}

// Those of the node, and of points in it.
void RestateValues(ObjectHandle node)
{
    Restate(node);
    for (const ObjectHandle& value : node.GetChildren("value"))
        Restate(value);
}

// The words of a title and the names of fonts may look like numbers.
bool IsText(ConstHandle parameter)
{
    const std::string_view id = parameter.GetProperty("parameterid");
    return id.starts_with("str") || id.starts_with("font");
}

} // namespace

void ReadDecimalCommas(DialectPass&, const EffectPart& part)
{
    for (const ObjectHandle& parameter : part.effect.GetChildren("parameter")) {
        if (IsText(parameter))
            continue;
        RestateValues(parameter);
        for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
            RestateValues(keyframe);
    }
}

} // namespace XPJ

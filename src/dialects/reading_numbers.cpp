#include "dialects/reading_numbers.h"

#include "core/text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

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
    for (const Name name : kNumbers) {
        const std::string_view text = Trimmed(node.GetProperty(name));
        if (!HasDecimalComma(text))
            continue;
        std::string number(text);
        std::ranges::replace(number, ',', '.');
        node.SetProperty(name, number);
    }
}

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

void RestateEffect(ObjectHandle effect)
{
    for (const ObjectHandle& parameter : effect.GetChildren("parameter")) {
        if (IsText(parameter))
            continue;
        RestateValues(parameter);
        for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
            RestateValues(keyframe);
    }
}

void RestateEffects(ObjectHandle owner)
{
    RestateEffect(owner.GetChild("effect"));
    for (const ObjectHandle& filter : owner.GetChildren("filter"))
        RestateEffect(filter.GetChild("effect"));
}

} // namespace

void ReadDecimalCommas(DialectPass& pass)
{
    const TreeParts& parts = pass.Parts();
    for (const ItemPart& part : parts.items)
        if (part.hasFilters || part.item.GetName() == "generatoritem")
            RestateEffects(part.item);
    for (const std::vector<ObjectHandle>* const owners :
         {&parts.sequences, &parts.clips, &parts.files, &parts.tracks})
        for (const ObjectHandle& owner : *owners)
            RestateEffects(owner);
}

} // namespace XPJ

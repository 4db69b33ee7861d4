#include "xmeml/attributes.h"

#include "core/text.h"

#include <algorithm>

namespace XPJ {

namespace {

struct Attribute {
    std::string_view name;
    std::string_view value;
};

// Takes the first attribute off the text; false where there is none.
bool TakeAttribute(std::string_view& text, Attribute& attribute)
{
    const std::size_t equals = text.find('=');
    const std::size_t open = text.find_first_of("\"'", equals);
    if (equals == text.npos || open == text.npos)
        return false;
    const std::size_t close = text.find(text[open], open + 1);
    if (close == text.npos)
        return false;
    attribute = {Trimmed(text.substr(0, equals)), text.substr(open + 1, close - open - 1)};
    text.remove_prefix(close + 1);
    return true;
}

bool HasAttribute(const XmemlElement& element, std::string_view name)
{
    return std::ranges::any_of(element.attributes, [name](const XmemlAttribute& attribute) {
        if (!attribute.list)
            return attribute.name == name;
        const std::span<const Name> names = attribute.list();
        return std::ranges::find(names, name, &Name::View) != names.end();
    });
}

bool IsOff(std::string_view value)
{
    return value.empty() || EqualsIgnoreCase(value, "FALSE");
}

} // namespace

void UnknownAttributes::Take(const AttributesOfTag& taken, const std::function<std::string()>& path)
{
    const XmemlElement* const element = taken.element;
    std::string_view rest = taken.attributes;
    Attribute attribute;
    while (TakeAttribute(rest, attribute)) {
        const auto& [name, value] = attribute;
        if (name == "id" || IsOff(value) || (element && HasAttribute(*element, name)))
            continue;
        IgnoredElements& entry = found_[{std::string(taken.tag), std::string(name)}];
        if (entry.owners.empty())
            entry.path = path().append("@").append(name);
        entry.owners.push_back(taken.node);
    }
}

std::vector<IgnoredElements> UnknownAttributes::List() const
{
    std::vector<IgnoredElements> list;
    for (const auto& [key, entry] : found_)
        list.push_back(entry);
    std::ranges::sort(list, {}, &IgnoredElements::path);
    return list;
}

} // namespace XPJ

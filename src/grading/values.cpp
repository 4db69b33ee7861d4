#include "grading/values.h"

#include "core/text.h"

#include <algorithm>
#include <utility>

namespace XPJ {

namespace {

template <typename Values>
auto Find(Values& values, std::string_view tag)
{
    return std::ranges::find_if(
        values, [tag](const CZvValue& value) { return EqualsIgnoreCase(value.tag, tag); });
}

} // namespace

const std::string* FindText(const CZvValues& values, std::string_view tag)
{
    const auto found = Find(values, tag);
    return found == values.end() ? nullptr : &found->text;
}

void SetText(CZvValues& values, std::string_view tag, std::string text)
{
    if (const auto found = Find(values, tag); found != values.end())
        found->text = std::move(text);
    else
        values.push_back({.tag = std::string(tag), .text = std::move(text)});
}

} // namespace XPJ

// Named texts of a look: parameters of a shader, fields of a layer or a mask.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

struct CZvValue {
    std::string tag; // as spelled
    std::string text;
    std::vector<CZvValue> children = {}; // of a value that is a small tree
};

using CZvValues = std::vector<CZvValue>;

// The text of the first value with that tag, in any case; null without one.
const std::string* FindText(const CZvValues& values, std::string_view tag);
// Replaces the text, or appends the value.
void SetText(CZvValues& values, std::string_view tag, std::string text);

} // namespace XPJ

// A value that is there against one that is not; `GetProperty` gives the empty text for both.
#pragma once

#include "tree/object.h"

#include <optional>

namespace XPJ {

inline std::optional<std::string_view> ValueOf(ConstHandle node, Name key)
{
    const std::string_view value = node.GetProperty(key);
    if (value.empty() && !node.HasProperty(key))
        return std::nullopt;
    return value;
}

} // namespace XPJ

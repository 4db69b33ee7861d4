// The value of a `parameter` or of a `keyframe` of an effect, as text.
#pragma once

#include "core/text.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// That of the child `value`, or of the property, as generated nodes have it.
inline std::string_view RawValue(ConstHandle node)
{
    const std::string_view text = node.GetChild("value").GetProperty("value");
    return Trimmed(text).empty() ? node.GetProperty("value") : text;
}

// The same without blanks at both ends; empty means that there is no value.
inline std::string_view PlainValue(ConstHandle node)
{
    return Trimmed(RawValue(node));
}

} // namespace XPJ

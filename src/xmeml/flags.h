// Switches that `xmeml` elements carry.
#pragma once

#include "core/text.h"
#include "tree/object.h"

namespace XPJ {

// An attribute that counts as set when it is there, unless its value is "false".
inline bool HasFlag(ConstHandle node, Name key)
{
    return node.HasProperty(key) && !EqualsIgnoreCase(node.GetProperty(key), "false");
}

// Tracks, items and filters are on unless `enabled` is "FALSE".
inline bool IsEnabled(ConstHandle node)
{
    return !EqualsIgnoreCase(node.GetProperty("enabled"), "FALSE");
}

} // namespace XPJ

// Pixel aspect ratios and the names that `xmeml` documents give them.
#pragma once

#include <span>
#include <string_view>

namespace XPJ {

struct PixelAspectRow {
    std::string_view name;             // `pixelaspectratio`; compares exactly
    std::string_view aspect;           // "10,11"
    std::string_view anamorphicAspect; // the same with `anamorphic`
};

std::span<const PixelAspectRow> PixelAspects();

// `FieldType` of a `fielddominance`: "upper" is "1", "lower" "2", anything else "0".
std::string_view FieldTypeOf(std::string_view fieldDominance);

} // namespace XPJ

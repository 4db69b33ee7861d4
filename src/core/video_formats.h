// Pixel aspects and field orders: how a project states them and how `xmeml` names them, for both
// directions.
#pragma once

#include <string_view>

namespace XPJ {

struct PixelAspect {
    std::string_view name; // "NTSC-601"
    bool anamorphic = false;
};

// The name of a ratio "n,d", "square" for one that has none. The height of the frame distinguishes
// two formats of the ratio 4:3.
//   PixelAspectName("40,33", 480) == {"NTSC-601", true}
PixelAspect PixelAspectName(std::string_view ratio, int frameHeight);

// The ratio of a name, "1,1" for an unknown one. Names compare exactly.
//   PixelAspectRatio({"NTSC-601", true}) == "40,33"
std::string_view PixelAspectRatio(const PixelAspect& aspect);

// `fielddominance` of a `FieldType`: "none" of "0", "upper" of "1", "lower" of anything else.
std::string_view FieldDominanceOf(std::string_view fieldType);
// `FieldType` of a `fielddominance`, "0" for any but "upper" and "lower".
std::string_view FieldTypeOfDominance(std::string_view fieldDominance);

} // namespace XPJ

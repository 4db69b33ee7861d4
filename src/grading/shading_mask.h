// Masks of a look: spline contours that limit what a layer changes. They are carried, not drawn.
#pragma once

#include "grading/values.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// The values of a point, in the order of its text.
inline constexpr std::array<std::string_view, 11> kMaskPointTags = {
    "inner", "innerprevtangent", "innernexttangent", "falloffexponent", "falloffweight", "detached",
    "outer", "outerprevtangent", "outernexttangent", "spline",          "smooth",
};

// A point of a contour, as animation strings: "catmull-rom,value:0.5,0.5@0".
struct CWidget {
    std::array<std::string, kMaskPointTags.size()> values;
};

struct CContour {
    CZvValues fields; // positive, nextset
    std::vector<CWidget> points;
};

struct CZvShadingMask {
    CZvValues fields; // name, width, height, activecontour, feather, roundness, midpoint
    std::vector<CContour> contours;

    // Empty without one.
    std::string_view Name() const;
};

} // namespace XPJ

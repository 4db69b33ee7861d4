// How a shape is drawn: fill, outline and shadow.
#pragma once

#include "text/text_parameters.h"

#include <string>
#include <string_view>

namespace XPJ::GVE {

struct ShapeStyle {
    PackedColor fillColor{0xffffff};
    bool fillVisible = true;
    PackedColor strokeColor;
    bool strokeVisible = false;
    double strokeWidth = 0; // pixels
    PackedColor shadowColor;
    bool shadowVisible = false;
    double shadowOpacity = 100; // percent
    double shadowAngle = 135;   // degrees
    double shadowOffset = 10;
    double shadowBlur = 0;

    bool operator==(const ShapeStyle&) const = default;

    // The default style for an invalid blob.
    static ShapeStyle FromBlob(std::string_view blob);
    std::string serialize() const;
};

} // namespace XPJ::GVE

// The values that a `parameter` or a `keyframe` of `xmeml` holds, read and written, and how numbers
// become text.
#pragma once

#include "tree/object.h"
#include "xmeml/parameter_values.h"

#include <string>
#include <string_view>

namespace XPJ {

// Six significant digits, no trailing zeros: "0.5", "100", "1e-05". Minus zero and what is not
// finite are "0".
std::string NumberText(double value);
// The text itself for a factor of exactly 1, so that all its digits stay; else the product.
std::string ScaledText(std::string_view text, double factor);

// Fractions of the frame: (0, 0) is the center in `xmeml`, the top left corner in a project.
struct Point {
    double horiz = 0;
    double vert = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

// The center of the frame in a project.
inline constexpr Point kFrameCenter{0.5, 0.5};

// "h:v", as projects write points.
std::string PointText(const Point& point);

// Channels of 0 to 255.
struct Color {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

// The value, else that of the first keyframe that has one (several editors write keyframes only),
// else `missing`.
std::string_view StaticValue(ConstHandle parameter, std::string_view missing);

// Parts of the child `value`; a missing part is 0.
Point PointValue(ConstHandle node);
Color ColorValue(ConstHandle node);
// Whether all channels are in 0 to 255; what stores them in a byte each changes others.
bool AreBytes(const Color& color);
// Like StaticValue; the center without any value.
Point StaticPoint(ConstHandle parameter);

bool HasKeyframes(ConstHandle parameter);
// The last `parameter` of that id, null without one.
template <class Handle>
Handle FindParameter(Handle effect, std::string_view parameterId)
{
    Handle found;
    for (const Handle parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("parameterid") == parameterId)
            found = parameter;
    return found;
}

// Give a `parameter` or a `keyframe` a point or a color as its value.
void AddPointValue(Document& document, ObjectHandle node, const Point& point);
void AddColorValue(Document& document, ObjectHandle node, const Color& color);

} // namespace XPJ

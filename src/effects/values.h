// The values that a `parameter` or a `keyframe` holds, and how numbers become text again.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// Six significant digits, no trailing zeros: "0.5", "100", "1e-05". Minus zero and what is not
// finite are "0".
std::string NumberText(double value);
// The text itself for a factor of exactly 1, so that all its digits stay; else the product.
std::string ScaledText(std::string_view text, double factor);

// Fractions of the frame: (0, 0) is the centre in `xmeml`, the top left corner in a project.
struct Point {
    double horiz = 0;
    double vert = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

// "h:v", the form of a point in a project.
std::string PointText(const Point& point);

// Channels of 0 to 255.
struct Colour {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

// Opaque, 16 bits a channel, as an unsigned decimal number. Channels are limited to 0 to 255.
//   PackedColour({255, 255, 255}) == "18374966859414961920"
std::string PackedColour(const Colour& colour);

// Text of the child `value`, else the property `value`, which nodes made in memory have.
std::string_view RawValue(ConstHandle node);
// The same without blanks at both ends; empty means that there is no value.
std::string_view PlainValue(ObjectHandle node);
// The value, else that of the first keyframe that has one (several editors write keyframes only),
// else `missing`.
std::string_view StaticValue(ObjectHandle parameter, std::string_view missing);

// Parts of the child `value`; a missing part is 0.
Point PointValue(ObjectHandle node);
Colour ColourValue(ObjectHandle node);
// Like StaticValue; the centre without any value.
Point StaticPoint(ObjectHandle parameter);

bool HasKeyframes(ObjectHandle parameter);
// The last `parameter` of that id, null without one.
ObjectHandle FindParameter(ObjectHandle effect, std::string_view parameterId);

// Frame length of a `rate` element; false, and *ticks untouched, without a timebase.
bool RateTicks(ObjectHandle rate, Ticks* ticks);

} // namespace XPJ

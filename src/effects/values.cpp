#include "effects/values.h"

#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace XPJ {

std::string NumberText(double value)
{
    return value == 0 || !std::isfinite(value) ? "0" : DoubleToString(value);
}

std::string ScaledText(std::string_view text, double factor)
{
    return factor == 1.0 ? std::string(text) : NumberText(ParseDouble(text) * factor);
}

std::string PointText(const Point& point)
{
    return NumberText(point.horiz) + ":" + NumberText(point.vert);
}

std::string_view StaticValue(ConstHandle parameter, std::string_view missing)
{
    const std::string_view value = PlainValue(parameter);
    if (!value.empty())
        return value;
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (const std::string_view first = PlainValue(keyframe); !first.empty())
            return first;
    return missing;
}

Point PointValue(ConstHandle node)
{
    const ConstHandle value = node.GetChild("value");
    return {DoubleProperty(value, "horiz"), DoubleProperty(value, "vert")};
}

Color ColorValue(ConstHandle node)
{
    const ConstHandle value = node.GetChild("value");
    return {IntProperty(value, "red"), IntProperty(value, "green"), IntProperty(value, "blue"),
            IntProperty(value, "alpha")};
}

bool AreBytes(const Color& color)
{
    return std::ranges::all_of(std::array{color.red, color.green, color.blue, color.alpha},
                               [](int channel) { return channel >= 0 && channel <= 255; });
}

Point StaticPoint(ConstHandle parameter)
{
    if (parameter.HasChild("value"))
        return PointValue(parameter);
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (keyframe.HasChild("value"))
            return PointValue(keyframe);
    return {};
}

bool HasKeyframes(ConstHandle parameter)
{
    return parameter.HasChild("keyframe");
}

void AddPointValue(Document& document, ObjectHandle node, const Point& point)
{
    const ObjectHandle value = document.NewObject("value");
    value.SetProperty("horiz", NumberText(point.horiz));
    value.SetProperty("vert", NumberText(point.vert));
    node.AddChild(value);
}

void AddColorValue(Document& document, ObjectHandle node, const Color& color)
{
    const ObjectHandle value = document.NewObject("value");
    value.SetProperty("alpha", IntToString(color.alpha));
    value.SetProperty("red", IntToString(color.red));
    value.SetProperty("green", IntToString(color.green));
    value.SetProperty("blue", IntToString(color.blue));
    node.AddChild(value);
}

} // namespace XPJ

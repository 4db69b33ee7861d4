#include "effects/values.h"

#include "core/frame_rate.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>

namespace XPJ {

namespace {

std::uint64_t PackedChannel(int channel)
{
    return static_cast<std::uint64_t>(std::clamp(channel, 0, 255)) * 256;
}

} // namespace

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

std::string PackedColour(const Colour& colour)
{
    constexpr std::uint64_t kOpaque = 0xFF00;
    return UintToString(kOpaque << 48 | PackedChannel(colour.red) << 32 |
                        PackedChannel(colour.green) << 16 | PackedChannel(colour.blue));
}

std::string_view RawValue(ConstHandle node)
{
    const std::string_view text = node.GetChild("value").GetProperty("value");
    return Trimmed(text).empty() ? node.GetProperty("value") : text;
}

std::string_view PlainValue(ObjectHandle node)
{
    return Trimmed(RawValue(node));
}

std::string_view StaticValue(ObjectHandle parameter, std::string_view missing)
{
    const std::string_view value = PlainValue(parameter);
    if (!value.empty())
        return value;
    for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
        if (const std::string_view first = PlainValue(keyframe); !first.empty())
            return first;
    return missing;
}

Point PointValue(ObjectHandle node)
{
    const ObjectHandle value = node.GetChild("value");
    return {DoubleProperty(value, "horiz"), DoubleProperty(value, "vert")};
}

Colour ColourValue(ObjectHandle node)
{
    const ObjectHandle value = node.GetChild("value");
    return {IntProperty(value, "red"), IntProperty(value, "green"), IntProperty(value, "blue"),
            IntProperty(value, "alpha")};
}

Point StaticPoint(ObjectHandle parameter)
{
    if (parameter.HasChild("value"))
        return PointValue(parameter);
    for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe"))
        if (keyframe.HasChild("value"))
            return PointValue(keyframe);
    return {};
}

bool HasKeyframes(ObjectHandle parameter)
{
    return parameter.HasChild("keyframe");
}

ObjectHandle FindParameter(ObjectHandle effect, std::string_view parameterId)
{
    ObjectHandle found;
    for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("parameterid") == parameterId)
            found = parameter;
    return found;
}

bool RateTicks(ObjectHandle rate, Ticks* ticks)
{
    return FrameTicks(Int64Property(rate, "timebase"), IsTrue(rate, "ntsc"), ticks);
}

} // namespace XPJ

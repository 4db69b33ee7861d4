#include "effects/no_op_tests.h"

#include "core/numbers.h"
#include "effects/values.h"

#include <algorithm>
#include <iterator>

namespace XPJ {

namespace {

struct RestValue {
    std::string_view effectId;
    std::string_view parameterId;
    Name part; // of a point or a colour; empty: the value itself
    double value;
    double otherwise; // a second value that passes
};

constexpr RestValue At(std::string_view effectId, std::string_view parameterId, double value)
{
    return {effectId, parameterId, {}, value, value};
}

constexpr RestValue PartAt(std::string_view effectId, std::string_view parameterId, Name part,
                           double value)
{
    return {effectId, parameterId, part, value, value};
}

// `llcorner` of a Distort is not judged.
constexpr RestValue kRestValues[] = {
    At("Basic 3D", "s", 100),
    PartAt("Basic 3D", "center", "horiz", 0),
    PartAt("Basic 3D", "center", "vert", 0),
    At("Basic 3D", "rx", 0),
    At("Basic 3D", "ry", 0),
    At("Basic 3D", "rz", 0),
    PartAt("deformation", "ulcorner", "horiz", -0.5),
    PartAt("deformation", "ulcorner", "vert", -0.5),
    PartAt("deformation", "urcorner", "horiz", 0.5),
    PartAt("deformation", "urcorner", "vert", -0.5),
    PartAt("deformation", "lrcorner", "horiz", 0.5),
    PartAt("deformation", "lrcorner", "vert", 0.5),
    At("deformation", "aspect", 0),
    At("crop", "left", 0),
    At("crop", "right", 0),
    At("crop", "top", 0),
    At("crop", "bottom", 0),
    At("crop", "edgefeather", 0),
    At("motionblur", "duration", 500),
    At("motionblur", "samples", 4),
    {"dropshadow", "offset", {}, 10, 2},
    At("dropshadow", "angle", 135),
    PartAt("dropshadow", "color", "alpha", 0),
    PartAt("dropshadow", "color", "red", 0),
    PartAt("dropshadow", "color", "green", 0),
    PartAt("dropshadow", "color", "blue", 0),
    At("dropshadow", "softness", 10),
    At("dropshadow", "opacity", 50),
};

bool IsAtRest(const RestValue& rest, ObjectHandle parameter)
{
    double value = 0;
    if (!rest.part.IsEmpty()) {
        if (!parameter.HasChild("value"))
            return true;
        value = DoubleProperty(parameter.GetChild("value"), rest.part);
    } else {
        const std::string_view text = PlainValue(parameter);
        if (text.empty())
            return true;
        value = ParseDouble(text);
    }
    return value == rest.value || value == rest.otherwise;
}

// `skipped` is a parameter that is not judged.
bool RestsBut(std::string_view skipped, std::string_view effectId, ObjectHandle effect)
{
    for (const ObjectHandle& parameter : effect.GetChildren("parameter")) {
        if (HasKeyframes(parameter))
            return false;
        const std::string_view id = parameter.GetProperty("parameterid");
        for (const RestValue& rest : kRestValues)
            if (rest.effectId == effectId && rest.parameterId == id && id != skipped &&
                !IsAtRest(rest, parameter))
                return false;
    }
    return true;
}

} // namespace

bool IsNoOp(std::string_view effectId, ObjectHandle effect)
{
    const bool isKnown = std::ranges::any_of(
        kRestValues, [&](const RestValue& rest) { return rest.effectId == effectId; });
    return isKnown && RestsBut({}, effectId, effect);
}

bool IsAspectOnly(ObjectHandle distort)
{
    return RestsBut("aspect", "deformation", distort);
}

} // namespace XPJ

#include "xmeml/speed.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/values.h"

#include <cmath>
#include <string_view>

namespace XPJ {

namespace {

constexpr double kPercent = 100.0;

// The `effect` of the first filter that is on.
ObjectHandle TimeRemapOf(ObjectHandle item)
{
    for (const ObjectHandle& filter : item.GetChildren("filter")) {
        const ObjectHandle effect = filter.GetChild("effect");
        if (effect.GetProperty("effectid") == "timeremap" &&
            !EqualsIgnoreCase(filter.GetProperty("enabled"), "FALSE"))
            return effect;
    }
    return {};
}

bool IsSwitchedOn(ObjectHandle parameter)
{
    return EqualsIgnoreCase(PlainValue(parameter), "true");
}

// The slope of a graph at the keyframe where its clip ends; 1 without one.
double GraphSpeed(ObjectHandle graph)
{
    double speed = 1.0;
    for (const ObjectHandle& keyframe : graph.GetChildren("keyframe")) {
        const double when = DoubleProperty(keyframe, "when");
        if (IsTrue(keyframe, "speedkfout") && when != 0.0)
            speed = ParseDouble(PlainValue(keyframe)) / when;
    }
    return speed;
}

} // namespace

ItemSpeed SpeedOfItem(ObjectHandle item)
{
    ItemSpeed result;
    for (const ObjectHandle& parameter : TimeRemapOf(item).GetChildren("parameter")) {
        const std::string_view id = parameter.GetProperty("parameterid");
        if (id == "speed")
            result.speed = ParseDouble(PlainValue(parameter)) / kPercent;
        else if (id == "reverse")
            result.playBackwards = IsSwitchedOn(parameter);
        else if (id == "frameblending")
            result.frameBlending = IsSwitchedOn(parameter);
    }
    const double graphSpeed = GraphSpeed(FindParameter(TimeRemapOf(item), "graphdict"));
    if (graphSpeed != 1.0 && !result.playBackwards)
        result.speed = graphSpeed;
    if (result.speed < 0.0) {
        result.speed = -result.speed;
        result.playBackwards = true;
    }
    if (!std::isfinite(result.speed) || result.speed == 0.0)
        result.speed = 1.0;
    return result;
}

} // namespace XPJ

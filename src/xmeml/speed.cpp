#include "xmeml/speed.h"

#include "core/numbers.h"
#include "core/text.h"
#include "xmeml/flags.h"
#include "xmeml/parameter_values.h"

#include <cmath>
#include <string_view>

namespace XPJ {

namespace {

constexpr double kPercent = 100.0;

// The `effect` of the first filter that is on.
ConstHandle TimeRemapOf(ConstHandle item)
{
    for (const ConstHandle& filter : item.GetChildren("filter")) {
        const ConstHandle effect = filter.GetChild("effect");
        if (effect.GetProperty("effectid") == "timeremap" && IsEnabled(filter))
            return effect;
    }
    return {};
}

bool IsSwitchedOn(ConstHandle parameter)
{
    return EqualsIgnoreCase(PlainValue(parameter), "true");
}

// The slope of a graph at the keyframe where its clip ends; 1 without one.
double GraphSpeed(ConstHandle graph)
{
    double speed = 1.0;
    for (const ConstHandle& keyframe : graph.GetChildren("keyframe")) {
        const double when = DoubleProperty(keyframe, "when");
        if (IsTrue(keyframe, "speedkfout") && when != 0.0)
            speed = ParseDouble(PlainValue(keyframe)) / when;
    }
    return speed;
}

} // namespace

ItemSpeed SpeedOfItem(ConstHandle item)
{
    ItemSpeed result;
    ConstHandle graph;
    for (const ConstHandle& parameter : TimeRemapOf(item).GetChildren("parameter")) {
        const std::string_view id = parameter.GetProperty("parameterid");
        if (id == "speed")
            result.speed = ParseDouble(PlainValue(parameter)) / kPercent;
        else if (id == "reverse")
            result.playBackwards = IsSwitchedOn(parameter);
        else if (id == "frameblending")
            result.frameBlending = IsSwitchedOn(parameter);
        else if (id == "graphdict")
            graph = parameter;
    }
    const double graphSpeed = GraphSpeed(graph);
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

#include "effects/time_remap.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "effects/values.h"

namespace XPJ {

namespace {

constexpr std::string_view kSpeed = "Speed";

bool IsSwitchedOn(ObjectHandle parameter)
{
    const std::string_view value = PlainValue(parameter);
    return ParseInt(value) > 0 || EqualsIgnoreCase(value, "true");
}

bool HasOwnPoint(ObjectHandle graph)
{
    for (const ObjectHandle& keyframe : graph.GetChildren("keyframe"))
        if (!IsTrue(keyframe, "speedvirtualkf") && !IsTrue(keyframe, "speedkfin") &&
            !IsTrue(keyframe, "speedkfout"))
            return true;
    return false;
}

ObjectHandle MakeSpeedParam(Document& document, ObjectHandle graph, Ticks frameTicks)
{
    const ObjectHandle param =
        MakeParam(document, ParamKind::Speed,
                  {.name = kSpeed,
                   .id = -1,
                   .upper = MediaSecondsText(graph.GetProperty("valuemax"), frameTicks)});
    param.SetPropertyShared("IsTimeVarying", "true");
    SetKeyframes(param, SpeedKeyframes(graph, frameTicks));
    return param;
}

} // namespace

bool IsVariableSpeed(ObjectHandle effect)
{
    return IsSwitchedOn(FindParameter(effect, "variablespeed")) &&
           HasOwnPoint(FindParameter(effect, "graphdict")) &&
           EqualsIgnoreCase(effect.GetProperty("mediatype"), "video");
}

bool AddTimeRemapping(Document& document, ObjectHandle effect, Ticks frameTicks,
                      ObjectHandle subClip)
{
    const ObjectHandle clip = subClip.GetChild("Clip");
    if (!clip || !effect)
        return false;
    if (clip.HasChild("TimeRemapping"))
        return true;
    const ObjectHandle remapping = document.NewObject("TimeRemapping");
    remapping.AddChild("Keyframes",
                       MakeSpeedParam(document, FindParameter(effect, "graphdict"), frameTicks));
    clip.AddChild("TimeRemapping", remapping);
    return true;
}

EffectListing ListTimeRemap()
{
    return {.family = "Intrinsic",
            .name = "Time Remap",
            .effectId = "timeremap",
            .parameters = {{kSpeed, true}, {"Reverse", false}, {"Frame Blending", false}},
            .note = "the curve between points of a variable speed is not carried"};
}

} // namespace XPJ

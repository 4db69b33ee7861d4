#include "inspect/project_effects.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/audio_filters.h"
#include "effects/keyframes.h"
#include "effects/opacity.h"
#include "effects/parameters.h"
#include "inspect/effect_names.h"
#include "inspect/neutral_effects.h"
#include "inspect/titles.h"
#include "project/accessors.h"

namespace XPJ::Inspection {

namespace {

Parameter ReadParameter(ConstHandle param)
{
    const std::string_view name = param.GetProperty("Name");
    const std::string_view blob = param.GetProperty("StartKeyframeValue");
    Parameter parameter{PlainText(name.empty() ? param.GetProperty("ParameterID") : name),
                        PlainText(blob.empty() ? StartText(param) : blob)};
    for (const KeyframeRecord& record : ParseKeyframes(param.GetProperty("Keyframes")))
        parameter.keyframes.push_back({record.time, PlainText(record.value)});
    return parameter;
}

Effect ReadComponent(ConstHandle component)
{
    const std::string_view match = ComponentMatchName(component);
    Effect effect = NamedByMatch(match, component.GetProperty("DisplayName"),
                                 component.GetProperty("InstanceName"));
    effect.enabled = !IsTrue(component, "Bypass");
    effect.isSource = match == kTextComponent || match == kGraphicShape.project.match;
    for (const ConstHandle& param : ParamsOf(component))
        effect.parameters.push_back(ReadParameter(param));
    return effect;
}

// "start" in the first third, "end" in the last, by the cut's distance from the start.
std::string_view AlignmentOf(ConstHandle core, const Transition& transition)
{
    if (!IsTrue(core, "HasOutgoingClip"))
        return "start-black";
    if (!IsTrue(core, "HasIncomingClip"))
        return "end-black";
    const double length =
        static_cast<double>(transition.end) - static_cast<double>(transition.start);
    const double cut = DoubleProperty(core, "Alignment");
    return cut < length / 3 ? "start" : cut > length * 2 / 3 ? "end" : "center";
}

} // namespace

std::vector<Effect> ReadProjectEffects(TrackItem trackItem)
{
    std::vector<Effect> effects;
    for (const ConstHandle& component : ComponentsOf(ChainOfOwner(trackItem)))
        if (Effect effect = ReadComponent(component); !IsOfUntouchedClip(effect, Family::Project))
            effects.push_back(std::move(effect));
    Effect pan{.name = std::string(kAudioPan.name), .kind = std::string(kAudioPan.name)};
    for (const ConstHandle& param : ParamsOf(PannerOf(trackItem)))
        pan.parameters.push_back(ReadParameter(param));
    if (!IsOfUntouchedClip(pan, Family::Project))
        effects.push_back(std::move(pan));
    return effects;
}

std::string ReadProjectCompositeMode(TrackItem trackItem)
{
    for (const ConstHandle& component : ComponentsOf(ChainOfOwner(trackItem)))
        if (ComponentMatchName(component) == kOpacity.project.match)
            if (const auto mode = CompositeModeOf(component))
                return std::string(mode->empty() ? kOtherCompositeMode : *mode);
    return {};
}

std::vector<Keyframe> ReadProjectSpeedKeyframes(ConstHandle clip)
{
    std::vector<Keyframe> keyframes;
    for (const SpeedPoint& point : ParseSpeedKeyframes(SpeedKeyframesOf(clip)))
        keyframes.push_back({point.time, TickText(point.mediaTime)});
    return keyframes;
}

Transition ReadProjectTransition(ConstHandle transition)
{
    Transition result{.name = TransitionNameOfMatch(transition.GetProperty("MatchName"),
                                                    transition.GetProperty("DisplayName")),
                      .start = Int64Property(transition, "Start"),
                      .end = Int64Property(transition, "End")};
    result.alignment = AlignmentOf(transition, result);
    for (const Name& key : {Name("Direction"), Name("Reverse"), Name("BorderColor"),
                            Name("BorderWidth"), Name("StartPercent"), Name("EndPercent")})
        if (const std::string_view value = transition.GetProperty(key); !value.empty())
            result.parameters.push_back({std::string(key.View()), PlainText(value)});
    return result;
}

} // namespace XPJ::Inspection

#include "effects/audio_fader.h"

#include "core/numbers.h"
#include "effects/audio_filters.h"
#include "effects/effect_walk.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "effects/values.h"

namespace XPJ {

namespace {

constexpr double kFaderTop = 2.0;
// For a level that does not state its range, which then is 0 to 3.98109: 12 dB above 1.
constexpr double kUsualFactor = 0.5023749777071104;

ObjectHandle MakeMember(Document& document, Name className, const FaderForm& form,
                        std::string_view id)
{
    const ObjectHandle member = document.NewObject(className);
    member.SetProperty("ChannelType", IntToString(form.channelType));
    member.SetProperty("FrameRate", TickText(form.sampleTicks));
    member.SetPropertyShared("Bypass", "false");
    member.SetProperty("ID", id);
    member.SetProperty("NumChannels", IntToString(form.channels));
    return member;
}

ObjectHandle MakeVolumeParam(Document& document, std::string_view value)
{
    return MakeParam(document, ParamKind::Audio,
                     {.name = "Volume", .value = value, .upper = "2.", .units = "dB"});
}

Clamp ClampOf(ObjectHandle level)
{
    const double min = DoubleProperty(level, "valuemin");
    const double range = DoubleProperty(level, "valuemax") - min;
    return {.valueOffset = -min,
            .valueFactor = range > 0 ? kFaderTop / range : kUsualFactor,
            .upper = kFaderTop,
            .reals = RecordReals::Audio};
}

// Documents state the level of every master, at 1: that is a fader at rest.
bool IsAtRest(ObjectHandle level)
{
    const std::string_view value = StaticValue(level, {});
    return value.empty() || (!HasKeyframes(level) && ParseDouble(value) == 1.0);
}

} // namespace

ObjectHandle MakeFaderChain(Document& document, const FaderForm& form)
{
    const ObjectHandle chain = document.NewObject("AudioComponentChain");
    chain.SetProperty("FrameRate", TickText(form.sampleTicks));
    chain.SetProperty("ChannelType", IntToString(form.channelType));
    chain.SetProperty("NumChannels", IntToString(form.channels));
    const ObjectHandle fader = MakeMember(document, "AudioFader", form, "1");
    fader.AddChild("Param", MakeVolumeParam(document, "1."));
    fader.AddChild("Param", MakeParam(document, ParamKind::AudioBypass, {.name = "Mute"}));
    chain.AddChild("Component", fader);
    chain.AddChild("Component", MakeMember(document, "AudioMeter", form, "2"));
    chain.SetPropertyShared("NextComponentID", "3");
    return chain;
}

void ApplyFaderLevel(const EffectContext& context, ObjectHandle owner, ObjectHandle chain)
{
    const ObjectHandle effect = FindAudioEffect(owner, kAudioLevels);
    const ObjectHandle level = FindParameter(effect, "level");
    if (!level || IsAtRest(level))
        return;
    const Clamp clamp = ClampOf(level);
    bool clamped = false;
    const double start = ClampedValue(ParseDouble(StaticValue(level, {})), clamp, &clamped);
    // The fader's first parameter.
    const ObjectHandle volume = FindPath(chain, {"Component", "Param"});
    const std::string value = NumberText(start);
    volume.SetProperty("CurrentValue", value);
    volume.SetProperty("StartKeyframe", StartKeyframeText(value));
    SetKeyframes(volume, ClampedKeyframes(level, context.frameTicks, clamp, &clamped));
    if (clamped)
        context.AddIssue(ImportIssue::AudioLevelClamped, EffectName(effect));
}

} // namespace XPJ

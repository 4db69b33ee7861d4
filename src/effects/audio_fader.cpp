#include "effects/audio_fader.h"

#include "core/numbers.h"
#include "effects/audio_chain.h"
#include "effects/audio_filters.h"
#include "effects/effect_elements.h"
#include "effects/effect_losses.h"
#include "effects/keyframes.h"
#include "effects/param_losses.h"
#include "effects/parameters.h"
#include "effects/values.h"

namespace XPJ {

namespace {

constexpr double kNeutral = 1.0; // of the fader and of a level

const XmemlParam& LevelParam()
{
    return kAudioLevels.params.back().param.xmeml;
}

ObjectHandle MakeMember(Document& document, Name className, const FaderFormat& format,
                        std::string_view id)
{
    const ObjectHandle member = document.NewObject(className);
    member.SetProperty("ChannelType", IntToString(format.channelType));
    member.SetProperty("FrameRate", TickText(format.sampleTicks));
    member.SetPropertyShared("Bypass", "false");
    member.SetProperty("ID", id);
    member.SetProperty("NumChannels", IntToString(format.channels));
    return member;
}

ObjectHandle MakeVolumeParam(Document& document, std::string_view value)
{
    return MakeParam(document, ParamKind::Audio,
                     {.name = "Volume", .value = value, .upper = "2.", .units = "dB"});
}

// A level that does not state its range has that of the documents of this system.
Clamp ClampOf(ConstHandle level)
{
    const double min = DoubleProperty(level, "valuemin");
    const double range = DoubleProperty(level, "valuemax") - min;
    return {.valueOffset = -min,
            .valueFactor = range > 0 ? kFaderTop / range : kFaderFactor,
            .upper = kFaderTop,
            .reals = RecordReals::Audio};
}

// Documents state the level of every master, at 1: that is a neutral fader.
bool IsNeutralLevel(ConstHandle level)
{
    const std::string_view value = StaticValue(level, {});
    return value.empty() || (!HasKeyframes(level) && ParseDouble(value) == kNeutral);
}

bool IsPan(ConstHandle effect)
{
    return AudioEffectId(effect) == kAudioPan.xmeml.id;
}

} // namespace

ObjectHandle MakeFaderChain(Document& document, const FaderFormat& format)
{
    const ObjectHandle chain = document.NewObject("AudioComponentChain");
    chain.SetProperty("FrameRate", TickText(format.sampleTicks));
    chain.SetProperty("ChannelType", IntToString(format.channelType));
    chain.SetProperty("NumChannels", IntToString(format.channels));
    const ObjectHandle fader = MakeMember(document, "AudioFader", format, "1");
    fader.AddChild("Param", MakeVolumeParam(document, "1."));
    fader.AddChild("Param", MakeParam(document, ParamKind::AudioBypass, {.name = "Mute"}));
    chain.AddChild("Component", fader);
    chain.AddChild("Component", MakeMember(document, "AudioMeter", format, "2"));
    chain.SetPropertyShared("NextComponentID", "3");
    return chain;
}

void ApplyFaderLevel(const EffectContext& context, ConstHandle owner, ObjectHandle chain)
{
    const ConstHandle effect = FindAudioEffect(owner, kAudioLevels.xmeml.id);
    const ConstHandle level = FindParameter(effect, LevelParam().id);
    if (!level || IsNeutralLevel(level))
        return;
    RemarkOnKeyframes(context, effect, level);
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
        context.AddIssue(ImportIssue::AudioLevelClamped, effect);
}

void RemarkOnTrackFilters(const EffectContext& context, ConstHandle owner)
{
    const ConstHandle fader = FindAudioEffect(owner, kAudioLevels.xmeml.id);
    RemarkOnFilters(context, owner, IsNeutralAudioFilter);
    RemarkOnPan(context, RemarkKind::PanOfTrack, owner);
    ForEachEffect(owner, [&](ConstHandle effect) {
        if (effect != fader && !IsPan(effect) && !IsNeutralAudioFilter(effect))
            context.AddRemark(RemarkKind::TrackFilter, effect);
    });
}

void FaderToXmeml(Document& document, ConstHandle volume, ObjectHandle owner)
{
    const double value = CurrentNumber(volume, kNeutral);
    if (value != kNeutral)
        AddParameter(document, LevelParam(), NumberText(LevelOfFader(value)),
                     AddFilter(document, kAudioLevels.xmeml, owner));
}

void AddTrackFilters(const EffectContext& context, ConstHandle owner, ObjectHandle chain)
{
    const ItemAudio audio{.channelType = IntProperty(chain, "ChannelType")};
    const ConstHandle fader = FindAudioEffect(owner, kAudioLevels.xmeml.id);
    int id = IntProperty(chain, "NextComponentID");
    RemarkOnFilters(context, owner, IsNeutralAudioFilter);
    RemarkOnPan(context, RemarkKind::PanOfTrack, owner);
    ForEachEffect(owner, [&](ConstHandle effect) {
        if (effect == fader || IsPan(effect))
            return;
        if (const ObjectHandle component = TranslateAudioFilter(context, audio, effect)) {
            component.SetProperty("ID", IntToString(id++));
            chain.AddChild("Component", component);
        }
    });
    chain.SetProperty("NextComponentID", IntToString(id));
}

void TrackEffectsToXmeml(const EffectContext& context, ConstHandle chain, ConstHandle volume,
                         ObjectHandle owner)
{
    const double value = CurrentNumber(volume, kNeutral);
    const std::string_view keyframes = volume.GetProperty("Keyframes");
    if (value != kNeutral || !keyframes.empty() || HasAudioFilters(chain)) {
        const ObjectHandle parameter =
            AddParameter(context.document, LevelParam(), NumberText(LevelOfFader(value)),
                         AddFilter(context.document, kAudioLevels.xmeml, owner));
        WriteKeyframes(context.document, parameter, keyframes, context.frameTicks, LevelOfFader);
        ReportKeyframes(context, {.name = volume.GetProperty("Name")}, volume);
    }
    TrackFiltersToXmeml(context, chain, owner);
}

} // namespace XPJ

#include "effects/audio_filters.h"

#include "core/numbers.h"
#include "effects/effect_list.h"
#include "effects/effect_walk.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "effects/values.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace XPJ {

namespace {

// Match names of mono, stereo and 5.1. Adaptive clips use those of mono.
struct MatchNames {
    std::string_view names[3];

    constexpr std::string_view Of(int channelType) const
    {
        return channelType == 1 || channelType == 2 ? names[channelType] : names[0];
    }
};

// clang-format off
constexpr MatchNames kVolumeNames =
    {"Internal Volume Mono",   "Internal Volume Stereo",   "Internal Volume 5.1"};
constexpr MatchNames kLowPassNames =
    {"Internal Lowpass Mono",  "Internal Lowpass Stereo",  "Internal Lowpass 5.1"};
constexpr MatchNames kHighPassNames =
    {"Internal Highpass Mono", "Internal Highpass Stereo", "Internal Highpass 5.1"};
constexpr MatchNames kBandPassNames =
    {"Internal Bandpass Mono", "Internal Bandpass Stereo", "Internal Bandpass 5.1"};
// clang-format on

enum class AudioScale { Level, Frequency, Q };

// A parameter of a filter and where its value comes from. Documents of some editors tell their
// parameters by a specifier alone.
struct AudioParamRow {
    std::string_view name;
    std::string_view units;
    AudioScale scale;
    std::string_view id;
    std::string_view specifier = {};
};

constexpr AudioParamRow kLevel[] = {{"Level", "dB", AudioScale::Level, "level"}};
// Its value counts as a factor, as a level does, although it is named for decibels.
constexpr AudioParamRow kGain[] = {{"Level", "dB", AudioScale::Level, "Gain(dB)"}};
constexpr AudioParamRow kCutoff[] = {
    {"Cutoff", "Hz", AudioScale::Frequency, "Frequency", "0:0:0"},
};
constexpr AudioParamRow kBand[] = {
    {"Center", "Hz", AudioScale::Frequency, "Frequency", "0:0:0"},
    {"Q", "", AudioScale::Q, "Q", "1:0:0"},
};

struct AudioFilterRow {
    std::string_view effectId;
    std::string_view name; // as documents usually have it
    const MatchNames* matchNames;
    std::span<const AudioParamRow> params;
    ImportIssue refusal; // of an effect that lacks a parameter; a level never lacks its own
    Outcome outcome = Outcome::CarriedOver;
    std::string_view note = {};
};

constexpr AudioFilterRow kAudioFilters[] = {
    {kAudioLevels, "Audio Levels", &kVolumeNames, kLevel, ImportIssue::EffectNotTranslated,
     Outcome::CarriedOver, "levels above 6 dB are lowered to 6 dB"},
    {"{61756678, 4761696e, 4b657947}", "Gain", &kVolumeNames, kGain,
     ImportIssue::EffectNotTranslated, Outcome::Approximated, "its decibels count as a factor"},
    {"{61756678, 4c506173, 4b657947}", "Low Pass Filter", &kLowPassNames, kCutoff,
     ImportIssue::InvalidLowPassFilterParameters},
    {"{61756678, 48506173, 4b657947}", "High Pass Filter", &kHighPassNames, kCutoff,
     ImportIssue::InvalidHighPassFilterParameters},
    {"{61756678, 42506173, 4b657947}", "Band Pass Filter", &kBandPassNames, kBand,
     ImportIssue::InvalidBandPassFilterParameters},
};

constexpr std::string_view kAudioPanName = "Audio Pan";

// Told by filters, but not held in the chain.
constexpr std::string_view kElsewhere[] = {
    kAudioPan,   // becomes the panner of the item
    "timeremap", // becomes the speed of its clip
};

// The scale of a frequency is told of half the sample rate.
constexpr double kLowestFrequency = 0.00041666600736789405;
constexpr double kFrequencyRange = 0.9900000095367432;
constexpr double kLowestQ = 1.0;
constexpr double kHighestQ = 20.0;

// Of a level that states no value: it changes nothing.
constexpr std::string_view kNeutralLevel = "1";

const AudioFilterRow* FindRow(std::string_view effectId)
{
    const auto* const row = std::ranges::find(kAudioFilters, effectId, &AudioFilterRow::effectId);
    return row != std::end(kAudioFilters) ? row : nullptr;
}

// The last one, if several claim to be it; null without one.
ObjectHandle FindSource(ObjectHandle effect, const AudioParamRow& row)
{
    ObjectHandle found;
    for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("parameterid") == row.id ||
            (!row.specifier.empty() &&
             parameter.GetProperty("parameterspecifier") == row.specifier))
            found = parameter;
    return found;
}

double Scaled(const EffectContext& context, AudioScale scale, double value)
{
    if (scale == AudioScale::Q)
        return QScale(value);
    // Whole samples a second, as documents state them.
    return FrequencyScale(value,
                          static_cast<double>(DivTicksOr0(kTicksPerSecond, context.sampleTicks)));
}

ObjectHandle MakeParamOfRow(const EffectContext& context, const AudioParamRow& row,
                            const std::string& value, const std::string& keyframes)
{
    const ObjectHandle param = MakeParam(context.document, ParamKind::Audio,
                                         {.name = row.name, .value = value, .units = row.units});
    SetKeyframes(param, keyframes);
    return param;
}

// The top of the range is 6 dB above the level of the source.
ObjectHandle MakeLevelParam(const EffectContext& context, const AudioParamRow& row,
                            ObjectHandle source, std::int64_t delayFrames, bool* clamped)
{
    const Clamp clamp{.offsetFrames = delayFrames, .valueFactor = 0.5, .reals = RecordReals::Audio};
    const double level = ParseDouble(StaticValue(source, kNeutralLevel));
    return MakeParamOfRow(context, row, NumberText(ClampedValue(level, clamp, clamped)),
                          ClampedKeyframes(source, context.frameTicks, clamp, clamped));
}

// Null when the effect does not state the value.
ObjectHandle MakeScaledParam(const EffectContext& context, const AudioParamRow& row,
                             ObjectHandle source)
{
    const std::string_view value = StaticValue(source, {});
    if (value.empty())
        return {};
    const auto scale = [&](double number) { return Scaled(context, row.scale, number); };
    return MakeParamOfRow(context, row, NumberText(scale(ParseDouble(value))),
                          MappedKeyframes(source, context.frameTicks, scale));
}

// `effect` may be null.
ObjectHandle MakeComponent(const EffectContext& context, int channelType, const MatchNames& names,
                           ObjectHandle effect)
{
    Document& document = context.document;
    const ObjectHandle component = document.NewObject("AudioFilterComponent");
    component.SetPropertyShared("FilterMatchName", names.Of(channelType));
    component.SetPropertyShared("Intrinsic", "false");
    component.SetPropertyShared("Bypass", IsTrue(effect, "velaBypass") ? "true" : "false");
    component.SetProperty("FrameRate", TickText(context.sampleTicks));
    component.SetProperty("ChannelType", IntToString(channelType));
    component.SetPropertyShared("FilterPreset", "0");
    component.SetPropertyShared("FilterIndex", "-1");
    component.SetPropertyShared("AudioComponentType", "0");
    CopyExpanded(effect, component);
    component.AddChild("Param", MakeParam(document, ParamKind::AudioBypass, {.name = "Bypass"}));
    return component;
}

} // namespace

double FrequencyScale(double frequency, double sampleRate)
{
    const double scaled = (2 * frequency / sampleRate - kLowestFrequency) / kFrequencyRange;
    return std::sqrt(std::clamp(scaled, 0.0, 1.0));
}

double QScale(double q)
{
    return std::sqrt((std::clamp(q, kLowestQ, kHighestQ) - kLowestQ) / (kHighestQ - kLowestQ));
}

double FrequencyOfScale(double scaled, double sampleRate)
{
    return (scaled * scaled * kFrequencyRange + kLowestFrequency) * sampleRate / 2;
}

double QOfScale(double scaled)
{
    return scaled * scaled * (kHighestQ - kLowestQ) + kLowestQ;
}

std::string_view AudioEffectId(ObjectHandle effect)
{
    if (HasValue(effect, "effectid"))
        return effect.GetProperty("effectid");
    const std::string_view name = effect.GetProperty("name");
    if (name == kAudioPanName)
        return kAudioPan;
    const auto* const row = std::ranges::find(kAudioFilters, name, &AudioFilterRow::name);
    return row != std::end(kAudioFilters) ? row->effectId : std::string_view();
}

ObjectHandle FindAudioEffect(ObjectHandle owner, std::string_view effectId)
{
    ObjectHandle found;
    ForEachEffect(owner, [&](ObjectHandle effect) {
        if (!found && AudioEffectId(effect) == effectId)
            found = effect;
    });
    return found;
}

ObjectHandle MakeNeutralVolume(const EffectContext& context, const ItemSound& sound)
{
    const ObjectHandle component = MakeComponent(context, sound.channelType, kVolumeNames, {});
    component.AddChild("Param", MakeLevelParam(context, kLevel[0], {}, 0, nullptr));
    return component;
}

ObjectHandle TranslateAudioFilter(const EffectContext& context, const ItemSound& sound,
                                  ObjectHandle effect)
{
    const std::string_view effectId = AudioEffectId(effect);
    const AudioFilterRow* const row = FindRow(effectId);
    if (!row) {
        if (std::ranges::find(kElsewhere, effectId) == std::end(kElsewhere))
            context.AddIssue(ImportIssue::EffectNotTranslated, EffectName(effect));
        return {};
    }
    const ObjectHandle component =
        MakeComponent(context, sound.channelType, *row->matchNames, effect);
    bool clamped = false;
    for (const AudioParamRow& param : row->params) {
        const ObjectHandle source = FindSource(effect, param);
        // A name alone is not enough for a level that is not there.
        const bool isLevel =
            param.scale == AudioScale::Level && (source || HasValue(effect, "effectid"));
        const ObjectHandle result =
            isLevel ? MakeLevelParam(context, param, source, sound.delayFrames, &clamped)
                    : MakeScaledParam(context, param, source);
        if (!result) {
            context.AddIssue(row->refusal, EffectName(effect));
            return {};
        }
        component.AddChild("Param", result);
    }
    if (clamped)
        context.AddIssue(ImportIssue::AudioLevelClamped, EffectName(effect));
    return component;
}

void AppendAudioEffects(std::vector<EffectListing>& list)
{
    constexpr std::string_view kFamily = "Audio filter";
    for (const AudioFilterRow& row : kAudioFilters) {
        EffectListing& listing = list.emplace_back(EffectListing{.family = kFamily,
                                                                 .name = row.name,
                                                                 .effectId = row.effectId,
                                                                 .outcome = row.outcome,
                                                                 .note = row.note});
        for (const AudioParamRow& param : row.params)
            listing.parameters.push_back({param.name, true});
    }
    list.push_back({.family = kFamily,
                    .name = kAudioPanName,
                    .effectId = kAudioPan,
                    .parameters = {{"Pan", true}},
                    .note = "of mono clips on stereo tracks; other clips are not panned"});
    list.push_back({.family = "Audio track",
                    .name = "Audio Levels",
                    .effectId = kAudioLevels,
                    .parameters = {{"Volume", true}},
                    .note = "of tracks and of the sequence; their other filters are dropped"});
}

} // namespace XPJ

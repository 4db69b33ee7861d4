#include "effects/audio_filters.h"

#include "core/numbers.h"
#include "effects/effect_walk.h"
#include "effects/keyframes.h"
#include "effects/time_remap.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

namespace XPJ {

namespace {

using K = ParamKind;
using enum Outcome;

constexpr AudioParamRow Bypass(std::string_view neutral = {})
{
    return {.param = {.kind = K::AudioBypass, .name = "Bypass", .neutral = neutral}};
}

constexpr AudioParamRow kLevelParams[] = {
    Bypass("false 0"),
    {.param = {.kind = K::Audio,
               .name = "Level",
               .value = "0.5",
               .xmeml = {"level", "Level", "0", "3.98109", "", "1"},
               .neutral = "0.5"},
     .scale = AudioScale::Volume,
     .units = "dB"},
};
// An import takes its value as a factor like that of a level, although it is named for decibels.
constexpr AudioParamRow kGainParams[] = {
    Bypass(),
    {.param = {.kind = K::Audio,
               .name = "Level",
               .value = "0.5",
               .xmeml = {"Gain(dB)", "Gain(dB)", "-96", "96"}},
     .scale = AudioScale::VolumeInDecibels,
     .units = "dB"},
};
constexpr AudioParamRow kPassParams[] = {
    Bypass(),
    {.param = {.kind = K::Audio,
               .name = "Cutoff",
               .xmeml = {"Frequency", "Frequency", "0", "20000"}},
     .scale = AudioScale::Frequency,
     .units = "Hz",
     .specifier = "0:0:0"},
};
constexpr AudioParamRow kBandParams[] = {
    Bypass(),
    {.param = {.kind = K::Audio,
               .name = "Center",
               .xmeml = {"Frequency", "Frequency", "0", "20000"}},
     .scale = AudioScale::Frequency,
     .units = "Hz",
     .specifier = "0:0:0"},
    {.param = {.kind = K::Audio, .name = "Q", .xmeml = {"Q", "Q", "0.7071", "20"}},
     .scale = AudioScale::Q,
     .specifier = "1:0:0"},
};
constexpr AudioParamRow kPanParams[] = {
    {.param = {.kind = K::Audio,
               .name = "Pan",
               .xmeml = {"pan", "Pan", "-1", "1", "", "0"},
               .neutral = "0.5"},
     .scale = AudioScale::Pan},
};
constexpr AudioParamRow kFaderParams[] = {
    {.param = {.kind = K::Audio, .name = "Volume", .xmeml = {.id = "level"}}},
};

constexpr AudioFilterRow kAudioFilters[] = {
    {.xmeml = {"audiolevels", "Audio Levels", "audiolevels", "audiolevels", "audio"},
     .project = {{"Internal Volume Mono", "Internal Volume Stereo", "Internal Volume 5.1"}},
     .name = "Volume",
     .params = kLevelParams,
     .note = "levels above 6 dB are lowered to 6 dB",
     .exported = AudioExport::Ordinary},
    {.xmeml = {"{61756678, 4761696e, 4b657947}", "Gain", "", "filter", "audio"},
     .project = {{"Internal Volume Mono", "Internal Volume Stereo", "Internal Volume 5.1"}},
     .name = "Volume",
     .params = kGainParams,
     .note = "its decibels count as a factor",
     .outcome = Approximated,
     .exported = AudioExport::HandOff},
    {.xmeml = {"{61756678, 4c506173, 4b657947}", "Low Pass Filter", "", "filter", "audio"},
     .project = {{"Internal Lowpass Mono", "Internal Lowpass Stereo", "Internal Lowpass 5.1"}},
     .name = "Low Pass",
     .params = kPassParams,
     .refusal = ImportIssue::InvalidLowPassFilterParameters},
    {.xmeml = {"{61756678, 48506173, 4b657947}", "High Pass Filter", "", "filter", "audio"},
     .project = {{"Internal Highpass Mono", "Internal Highpass Stereo", "Internal Highpass 5.1"}},
     .name = "High Pass",
     .params = kPassParams,
     .refusal = ImportIssue::InvalidHighPassFilterParameters},
    {.xmeml = {"{61756678, 42506173, 4b657947}", "Band Pass Filter", "", "filter", "audio"},
     .project = {{"Internal Bandpass Mono", "Internal Bandpass Stereo", "Internal Bandpass 5.1"}},
     .name = "Band Pass",
     .params = kBandParams,
     .refusal = ImportIssue::InvalidBandPassFilterParameters},
    {.xmeml = {"audiopan", "Audio Pan", "audiopan", "audiopan", "audio"},
     .name = "Pan",
     .params = kPanParams,
     .note = "of mono clips on stereo tracks; other clips are not panned"},
    {.xmeml = {"audiolevels", "Audio Levels", "audiolevels", "audiolevels", "audio"},
     .params = kFaderParams,
     .note = "of tracks and of the sequence; their other filters are dropped",
     .isOfTrack = true},
};

// Of a level that states no value: it changes nothing.
constexpr std::string_view kNeutralLevel = "1";

const AudioFilterRow* FindRow(std::string_view effectId)
{
    if (effectId.empty())
        return nullptr;
    const auto* const row = std::ranges::find(
        kAudioFilters, effectId, [](const AudioFilterRow& filter) { return filter.xmeml.id; });
    return row != std::end(kAudioFilters) ? row : nullptr;
}

bool IsInChain(const AudioFilterRow& row)
{
    return !row.project.names[0].empty();
}

bool IsLevel(const AudioParamRow& row)
{
    return row.scale == AudioScale::Volume || row.scale == AudioScale::VolumeInDecibels;
}

// ---- To a project

// The last one, if several match; null without one.
ConstHandle FindSource(ConstHandle effect, const AudioParamRow& row)
{
    ConstHandle found;
    for (const ConstHandle parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("parameterid") == row.param.xmeml.id ||
            (!row.specifier.empty() &&
             parameter.GetProperty("parameterspecifier") == row.specifier))
            found = parameter;
    return found;
}

double ScaledValue(const EffectContext& context, AudioScale scale, double value)
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
    const ObjectHandle param =
        MakeParam(context.document, row.param.kind,
                  {.name = row.param.name, .value = value, .units = row.units});
    SetKeyframes(param, keyframes);
    return param;
}

// The top of the range is 6 dB above the level of the source.
ObjectHandle MakeLevelParam(const EffectContext& context, const AudioParamRow& row,
                            ConstHandle source, std::int64_t delayFrames, bool* clamped)
{
    const Clamp clamp{.offsetFrames = delayFrames, .valueFactor = 0.5, .reals = RecordReals::Audio};
    const double level = ParseDouble(StaticValue(source, kNeutralLevel));
    return MakeParamOfRow(context, row, NumberText(ClampedValue(level, clamp, clamped)),
                          ClampedKeyframes(source, context.frameTicks, clamp, clamped));
}

// Null when the effect does not state the value.
ObjectHandle MakeScaledParam(const EffectContext& context, const AudioParamRow& row,
                             ConstHandle source)
{
    const std::string_view value = StaticValue(source, {});
    if (value.empty())
        return {};
    const auto scale = [&](double number) { return ScaledValue(context, row.scale, number); };
    return MakeParamOfRow(context, row, NumberText(scale(ParseDouble(value))),
                          MappedKeyframes(source, context.frameTicks, scale));
}

// `effect` may be null.
ObjectHandle MakeComponent(const EffectContext& context, int channelType, const AudioFilterRow& row,
                           ConstHandle effect)
{
    const ObjectHandle component = context.document.NewObject("AudioFilterComponent");
    component.SetPropertyShared("FilterMatchName", row.project.Of(channelType));
    component.SetPropertyShared("Intrinsic", "false");
    component.SetPropertyShared("Bypass", IsTrue(effect, "velaBypass") ? "true" : "false");
    component.SetProperty("FrameRate", TickText(context.sampleTicks));
    component.SetProperty("ChannelType", IntToString(channelType));
    component.SetPropertyShared("FilterPreset", "0");
    component.SetPropertyShared("FilterIndex", "-1");
    component.SetPropertyShared("AudioComponentType", "0");
    CopyExpanded(effect, component);
    return component;
}

// ---- To `xmeml`

// The row by which a component is written; null for one that documents do not have.
const AudioFilterRow* FindWritten(const EffectContext& context, std::string_view matchName)
{
    const AudioExport kind = context.isHandOff ? AudioExport::HandOff : AudioExport::Ordinary;
    for (const AudioFilterRow& row : kAudioFilters)
        if (IsInChain(row) && matchName.starts_with(row.project.Stem()) &&
            (row.exported == AudioExport::Always || row.exported == kind))
            return &row;
    return nullptr;
}

void ComponentToXmeml(const EffectContext& context, const AudioFilterRow& row,
                      ConstHandle component, ObjectHandle element)
{
    const ObjectHandle effect = AddFilter(context.document, row.xmeml, element);
    WriteSwitches(component, effect);
    const ConstChildRange params = ParamsOf(component);
    auto next = params.begin();
    for (const AudioParamRow& param : row.params) {
        const bool isThere = next != params.end();
        if (param.scale != AudioScale::None)
            AddAudioParameter(context, param, isThere ? *next : ConstHandle(), effect);
        if (isThere)
            ++next;
    }
}

void FilterToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle element)
{
    const std::string_view matchName = ComponentMatchName(component);
    if (const AudioFilterRow* const row = FindWritten(context, matchName))
        ComponentToXmeml(context, *row, component, element);
    else
        context.AddIssue(ExportIssue::EffectNotTranslated, matchName);
}

EffectContext ContextOfChain(const EffectContext& context, ConstHandle chain)
{
    EffectContext result = context;
    if (const Ticks sample = Int64Property(chain, "FrameRate");
        sample > 0 && sample != std::numeric_limits<Ticks>::max())
        result.sampleTicks = sample;
    return result;
}

// Fader and meter of a track are parts of its chain.
bool IsFilter(ConstHandle component)
{
    return !(component.GetName() == "AudioFader" || component.GetName() == "AudioMeter");
}

} // namespace

const AudioFilterRow& kAudioLevels = kAudioFilters[0];
const AudioFilterRow& kAudioGain = kAudioFilters[1];
const AudioFilterRow& kAudioPan = kAudioFilters[5];

std::span<const AudioFilterRow> AudioFilters()
{
    return kAudioFilters;
}

std::string_view AudioEffectId(ConstHandle effect)
{
    if (HasValue(effect, "effectid"))
        return effect.GetProperty("effectid");
    const auto* const row =
        std::ranges::find(kAudioFilters, effect.GetProperty("name"),
                          [](const AudioFilterRow& filter) { return filter.xmeml.name; });
    return row != std::end(kAudioFilters) ? row->xmeml.id : std::string_view();
}

ConstHandle FindAudioEffect(ConstHandle owner, std::string_view effectId)
{
    ConstHandle found;
    ForEachEffect(owner, [&](ConstHandle effect) {
        if (!found && AudioEffectId(effect) == effectId)
            found = effect;
    });
    return found;
}

ObjectHandle MakeNeutralVolume(const EffectContext& context, const ItemAudio& audio)
{
    const ObjectHandle component = MakeComponent(context, audio.channelType, kAudioLevels, {});
    for (const AudioParamRow& row : kLevelParams)
        component.AddChild("Param", IsLevel(row) ? MakeLevelParam(context, row, {}, 0, nullptr)
                                                 : MakeParamOfRow(context, row, {}, {}));
    return component;
}

ObjectHandle TranslateAudioFilter(const EffectContext& context, const ItemAudio& audio,
                                  ConstHandle effect)
{
    const std::string_view effectId = AudioEffectId(effect);
    const AudioFilterRow* const row = FindRow(effectId);
    if (!row || !IsInChain(*row)) {
        // The pan becomes the panner of the item, a speed that of its clip.
        if (!row && effectId != kTimeRemap.xmeml.id)
            context.AddIssue(ImportIssue::EffectNotTranslated, EffectName(effect));
        return {};
    }
    const ObjectHandle component = MakeComponent(context, audio.channelType, *row, effect);
    bool clamped = false;
    for (const AudioParamRow& param : row->params) {
        if (param.scale == AudioScale::None) {
            component.AddChild("Param", MakeParamOfRow(context, param, {}, {}));
            continue;
        }
        const ConstHandle source = FindSource(effect, param);
        // A name alone is not enough for a level that is not there.
        const bool isLevel = IsLevel(param) && (source || HasValue(effect, "effectid"));
        const ObjectHandle result =
            isLevel ? MakeLevelParam(context, param, source, audio.delayFrames, &clamped)
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

bool HasAudioFilters(ConstHandle chain)
{
    for (const ConstHandle component : ComponentsOf(chain))
        if (IsFilter(component))
            return true;
    return false;
}

void AudioChainToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element)
{
    const EffectContext ofChain = ContextOfChain(context, chain);
    for (const ConstHandle component : ComponentsOf(chain))
        FilterToXmeml(ofChain, component, element);
}

void TrackFiltersToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element)
{
    const EffectContext ofChain = ContextOfChain(context, chain);
    for (const ConstHandle component : ComponentsOf(chain))
        if (IsFilter(component))
            FilterToXmeml(ofChain, component, element);
}

void ReportAudioChain(const EffectContext& context, ConstHandle chain, ExportIssue kind)
{
    for (const ConstHandle component : ComponentsOf(chain))
        if (const std::string_view matchName = ComponentMatchName(component);
            !FindWritten(context, matchName))
            context.AddIssue(kind, matchName);
}

void GainToXmeml(const EffectContext& context, ConstHandle clip, bool isBarsAndTone,
                 ObjectHandle element)
{
    constexpr double kGainOfBarsAndTone = 0.2513;
    if (!clip.HasProperty("Gain"))
        return;
    const ObjectHandle effect = AddEmptyFilter(context.document, element);
    effect.SetPropertyShared("mediatype", "audio");
    double gain = DoubleProperty(clip, "Gain");
    if (gain == 1.0) {
        if (!isBarsAndTone)
            return;
        gain = kGainOfBarsAndTone;
    }
    const AudioFilterRow& row = context.isHandOff ? kAudioLevels : kAudioGain;
    WriteEffectHead(row.xmeml, effect);
    AddParameter(context.document, row.params.back().param.xmeml,
                 NumberText(context.isHandOff ? LevelOfVolume(gain) : DecibelsOfGain(gain)),
                 effect);
}

void AddAudioParameter(const EffectContext& context, const AudioParamRow& row, ConstHandle param,
                       ObjectHandle effect)
{
    if (row.param.value.empty() && StartText(param).empty())
        return;
    const auto sampleRate = static_cast<double>(DivTicks(kTicksPerSecond, context.sampleTicks));
    const auto map = [&](double value) { return AudioValueToXmeml(row.scale, value, sampleRate); };
    const double value = CurrentNumber(param, ParseDouble(row.param.value));
    const ObjectHandle parameter =
        AddParameter(context.document, row.param.xmeml, NumberText(map(value)), effect);
    WriteKeyframes(context.document, parameter, param.GetProperty("Keyframes"), context.frameTicks,
                   map);
}

} // namespace XPJ

#include "effects/audio_chain.h"

#include "core/numbers.h"
#include "effects/effect_elements.h"
#include "effects/effect_losses.h"
#include "effects/keyframes.h"
#include "effects/param_losses.h"
#include "effects/time_remap.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>
#include <string>
#include <vector>

namespace XPJ {

namespace {

// ---- To a project

// Of a level that states no value: it changes nothing.
constexpr std::string_view kNeutralLevel = "1";

bool IsLevel(const AudioParamRow& row)
{
    return row.scale == AudioScale::Volume || row.scale == AudioScale::VolumeInDecibels;
}

bool IsOfRow(const AudioParamRow& row, ConstHandle parameter)
{
    return parameter.GetProperty("parameterid") == row.param.xmeml.id ||
           (!row.specifier.empty() && parameter.GetProperty("parameterspecifier") == row.specifier);
}

// The last one, if several match; null without one.
ConstHandle FindSource(ConstHandle effect, const AudioParamRow& row)
{
    ConstHandle found;
    for (const ConstHandle parameter : effect.GetChildren("parameter"))
        if (IsOfRow(row, parameter))
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

// ---- What of an effect is lost

// Calls `use(value)` for the static value and for those of keyframes.
template <typename Use>
void ForEachValue(ConstHandle parameter, const Use& use)
{
    if (const std::string_view value = PlainValue(parameter); !value.empty())
        use(ParseDouble(value));
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (const std::string_view value = PlainValue(keyframe); !value.empty())
            use(ParseDouble(value));
}

template <typename Is>
bool HasAnyValue(ConstHandle parameter, const Is& is)
{
    bool found = false;
    ForEachValue(parameter, [&](double value) { found = found || is(value); });
    return found;
}

// Of a value that the scale of the project ends before.
bool IsBeyondScale(const EffectContext& context, AudioScale scale, double value)
{
    switch (scale) {
    case AudioScale::Volume:
        return value < 0;
    case AudioScale::Frequency:
        return value < 0 ||
               value > static_cast<double>(DivTicksOr0(kTicksPerSecond, context.sampleTicks)) / 2;
    case AudioScale::Q:
        return value < kLowestQ || value > kHighestQ;
    default:
        return false;
    }
}

// To the letter the decibels of a gain count as a factor.
void RemarkOnGain(const EffectContext& context, ConstHandle effect, ConstHandle parameter)
{
    const auto isSilent = [](double decibels) { return decibels <= 0; };
    const RemarkKind kind =
        HasAnyValue(parameter, isSilent) ? RemarkKind::GainMutes : RemarkKind::GainAsFactor;
    context.AddRemark(kind, effect, StaticValue(parameter, "0"));
}

void RemarkOnAudioParameters(const EffectContext& context, const AudioFilterRow& row,
                             ConstHandle effect)
{
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        const auto known = std::ranges::find_if(row.params, [&](const AudioParamRow& param) {
            return param.scale != AudioScale::None && IsOfRow(param, parameter);
        });
        if (known == row.params.end()) {
            RemarkOnLostParameter(context, effect, parameter);
            continue;
        }
        RemarkOnKeyframes(context, effect, parameter);
        const AudioScale scale = known->scale;
        if (scale == AudioScale::VolumeInDecibels && !context.openInterchange)
            RemarkOnGain(context, effect, parameter);
        else if (HasAnyValue(parameter,
                             [&](double value) { return IsBeyondScale(context, scale, value); }))
            context.AddRemark(RemarkKind::ValueLimited, effect, ParameterName(parameter));
    }
}

// `effect` may be null.
ObjectHandle MakeComponent(const EffectContext& context, int channelType, const AudioFilterRow& row,
                           ConstHandle effect)
{
    Document& document = context.document;
    const ObjectHandle component = document.NewObject(
        "AudioFilterComponent", {{"FilterMatchName", row.project.Of(channelType)},
                                 {"Intrinsic", "false"},
                                 {"Bypass", IsTrue(effect, "velaBypass") ? "true" : "false"},
                                 {"FrameRate", document.StoreNumber(context.sampleTicks)},
                                 {"ChannelType", document.StoreNumber(channelType)}});
    CopyExpanded(effect, component);
    return component;
}

// The AudioFilterComponent of a volume that changes nothing.
ObjectHandle MakeNeutralVolume(const EffectContext& context, const ItemAudio& audio)
{
    const ObjectHandle component = MakeComponent(context, audio.channelType, kAudioLevels, {});
    for (const AudioParamRow& row : kAudioLevels.params)
        component.AddChild("Param", IsLevel(row) ? MakeLevelParam(context, row, {}, 0, nullptr)
                                                 : MakeParamOfRow(context, row, {}, {}));
    return component;
}

} // namespace

ObjectHandle TranslateAudioFilter(const EffectContext& context, const ItemAudio& audio,
                                  ConstHandle effect)
{
    const std::string_view effectId = AudioEffectId(effect);
    const AudioFilterRow* const row = FindAudioFilter(effectId);
    if (!row || !row->IsInChain()) {
        // The pan becomes the panner of the item, a speed that of its clip.
        if (effectId == kTimeRemap.xmeml.id) {
            if (HasSpeedCurve(effect))
                context.AddRemark(RemarkKind::SpeedCurveOfAudio, effect);
        } else if (!row) {
            context.AddIssue(ImportIssue::EffectNotTranslated, effect);
        }
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
            context.AddIssue(row->refusal, effect);
            return {};
        }
        component.AddChild("Param", result);
    }
    if (clamped)
        context.AddIssue(ImportIssue::AudioLevelClamped, effect);
    RemarkOnAudioParameters(context, *row, effect);
    return component;
}

bool IsNeutralAudioFilter(ConstHandle effect)
{
    const std::string_view effectId = AudioEffectId(effect);
    if (effectId == kTimeRemap.xmeml.id)
        return IsNeutralSpeed(effect);
    const AudioFilterRow* const row = FindAudioFilter(effectId);
    if (!row)
        return false;
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        const auto known = std::ranges::find_if(
            row->params, [&](const AudioParamRow& param) { return IsOfRow(param, parameter); });
        const ParamRow* const param = known == row->params.end() ? nullptr : &known->param;
        if (!IsHarmless(param, parameter) && StatesValue(parameter))
            return false;
    }
    return true;
}

void RemarkOnPan(const EffectContext& context, RemarkKind kind, ConstHandle owner)
{
    const ConstHandle effect = FindAudioEffect(owner, kAudioPan.xmeml.id);
    if (!effect || IsNeutralAudioFilter(effect))
        return;
    const ConstHandle pan = effect.GetChild("parameter");
    context.AddRemark(kind, effect, HasKeyframes(pan) ? "keyframes" : StaticValue(pan, {}));
}

namespace {

bool IsKnown(std::string_view effectId)
{
    return FindAudioFilter(effectId) || effectId == kTimeRemap.xmeml.id;
}

// What the filters of an item become, in the order of the chain.
std::vector<ObjectHandle> ComponentsOf(const EffectContext& context, const ItemAudio& audio,
                                       ConstHandle item)
{
    ObjectHandle volume;
    std::vector<ObjectHandle> components(1);
    // The first Gain filter of an item that states its gain is that gain, which its clip has.
    const ConstHandle gain =
        HasValue(item, "velaGain") ? FindAudioEffect(item, kAudioGain.xmeml.id) : ConstHandle();
    const ConstHandle pan = FindAudioEffect(item, kAudioPan.xmeml.id);
    RemarkOnFilters(context, item, IsNeutralAudioFilter);
    const auto take = [&](ConstHandle effect) {
        if (effect == gain)
            return;
        if (effect != pan && AudioEffectId(effect) == kAudioPan.xmeml.id)
            RemarkOnSecond(context, effect, IsNeutralAudioFilter);
        const ObjectHandle component = TranslateAudioFilter(context, audio, effect);
        if (!component)
            return;
        if (!volume && AudioEffectId(effect) == kAudioLevels.xmeml.id)
            volume = component;
        else
            components.push_back(component);
    };
    for (const ConstHandle filter : item.GetChildren("filter"))
        if (const ConstHandle effect = ActiveEffect(filter)) {
            take(effect);
            if (IsKnown(AudioEffectId(effect)))
                RemarkOnRange(context, item, filter, IsNeutralAudioFilter);
        }
    components.front() = volume ? volume : MakeNeutralVolume(context, audio);
    components.front().SetPropertyShared("Intrinsic", "true");
    return components;
}

// ---- To `xmeml`

// The row by which a component is written; null for one that documents do not have.
const AudioFilterRow* FindWritten(const EffectContext& context, std::string_view matchName)
{
    const AudioExport kind = context.isHandOff ? AudioExport::HandOff : AudioExport::Ordinary;
    for (const AudioFilterRow& row : AudioFilters())
        if (row.IsInChain() && matchName.starts_with(row.project.Stem()) &&
            (row.exported == AudioExport::Always || row.exported == kind))
            return &row;
    return nullptr;
}

double SampleRateOf(const EffectContext& context)
{
    return static_cast<double>(DivTicks(kTicksPerSecond, context.sampleTicks));
}

bool IsClamped(const EffectContext& context, AudioScale scale, ConstHandle param)
{
    const double sampleRate = SampleRateOf(context);
    const auto isBeyond = [&](double value) { return IsBeyondRange(scale, value, sampleRate); };
    return (!StartText(param).empty() && isBeyond(CurrentNumber(param, 0))) ||
           std::ranges::any_of(ParseKeyframes(param.GetProperty("Keyframes")), isBeyond,
                               &KeyframeRecord::Number);
}

// `row` is null for one behind those of the effect.
void ReportAudioParam(const EffectContext& context, const RemarkSubject& effect,
                      const AudioParamRow* row, ConstHandle param)
{
    if (!row || row->scale == AudioScale::None)
        return ReportUnwritten(context, effect, row ? &row->param : nullptr, param);
    ReportKeyframes(context, effect, param);
    if (IsClamped(context, row->scale, param))
        context.AddRemark(
            RemarkKind::ValueClamped,
            {.name = effect.name, .id = effect.id, .detail = param.GetProperty("Name")});
}

void ReportAudioParams(const EffectContext& context, const AudioFilterRow& row,
                       ConstHandle component)
{
    RemarkSubject effect = SubjectOf(component);
    if (!HasValue(component, "DisplayName"))
        effect.name = row.name;
    auto next = row.params.begin();
    for (const ConstHandle param : ParamsOf(component))
        ReportAudioParam(context, effect, next != row.params.end() ? &*next++ : nullptr, param);
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
    ReportAudioParams(context, row, component);
}

void FilterToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle element)
{
    const std::string_view matchName = ComponentMatchName(component);
    if (const AudioFilterRow* const row = FindWritten(context, matchName))
        ComponentToXmeml(context, *row, component, element);
    else
        context.AddIssue(ExportIssue::EffectNotTranslated, matchName, component);
}

EffectContext ContextOfChain(const EffectContext& context, ConstHandle chain)
{
    EffectContext result = context;
    if (const Ticks sample = Int64Property(chain, "FrameRate");
        sample > 0 && sample != std::numeric_limits<Ticks>::max())
        result.sampleTicks = sample;
    return result;
}

// The level, which every clip has, at its neutral value.
bool IsNeutralVolume(const AudioFilterRow* row, ConstHandle component)
{
    if (row != &kAudioLevels)
        return false;
    auto next = row->params.begin();
    for (const ConstHandle param : ParamsOf(component)) {
        if (next == row->params.end())
            return true;
        const ParamRow& known = next++->param;
        const bool isNeutral =
            known.kind == ParamKind::AudioBypass
                ? !StartSwitch(param, false)
                : StartNumber(param, ParseDouble(known.value)) == ParseDouble(known.value);
        if (HasValue(param, "Keyframes") || !isNeutral)
            return false;
    }
    return true;
}

// Fader and meter of a track are parts of its chain.
bool IsFilter(ConstHandle component)
{
    return !(component.GetName() == "AudioFader" || component.GetName() == "AudioMeter");
}

} // namespace

ObjectHandle BuildAudioChain(const EffectContext& context, const ItemAudio& audio, ConstHandle item)
{
    Document& document = context.document;
    const ObjectHandle chain = document.NewObject(
        "AudioComponentChain", {{"FrameRate", document.StoreNumber(context.sampleTicks)},
                                {"ChannelType", document.StoreNumber(audio.channelType)}});
    int id = 1;
    for (const ObjectHandle component : ComponentsOf(context, audio, item)) {
        component.SetNumber("ID", id++);
        chain.AddChild("Component", component);
    }
    chain.SetNumber("NextComponentID", id);
    return chain;
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

void ReportAudioEffects(const EffectContext& context, ConstHandle chain,
                        const WrittenChain& written)
{
    for (const ConstHandle component : ComponentsOf(chain)) {
        const AudioFilterRow* const row = FindWritten(context, ComponentMatchName(component));
        const bool isThere = row ? written.isWritten : written.isReported;
        if (!isThere && IsFilter(component) && !IsNeutralVolume(row, component))
            context.AddRemark(written.loss, SubjectOf(component));
    }
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
    const double sampleRate = SampleRateOf(context);
    const auto map = [&](double value) { return AudioValueToXmeml(row.scale, value, sampleRate); };
    const double value = CurrentNumber(param, ParseDouble(row.param.value));
    const ObjectHandle parameter =
        AddParameter(context.document, row.param.xmeml, NumberText(map(value)), effect);
    WriteKeyframes(context.document, parameter, param.GetProperty("Keyframes"), context.frameTicks,
                   map);
}

} // namespace XPJ

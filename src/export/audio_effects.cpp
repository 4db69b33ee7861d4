#include "export/audio_effects.h"

#include "core/numbers.h"
#include "effects/audio_filters.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "effects/values.h"
#include "export/audio_values.h"
#include "export/effect_parts.h"
#include "export/rates.h"

#include <span>

namespace XPJ::RVX {

namespace {

constexpr EffectHead kLevels{"Audio Levels", kAudioLevels, kAudioLevels, kAudioLevels, "audio"};
constexpr EffectHead kGain{"Gain", "{61756678, 4761696e, 4b657947}", "", "filter", "audio"};
constexpr EffectHead kPan{"Audio Pan", kAudioPan, kAudioPan, kAudioPan, "audio"};
constexpr EffectHead kLowPass{"Low Pass Filter", "{61756678, 4c506173, 4b657947}", "", "filter",
                              "audio"};
constexpr EffectHead kHighPass{"High Pass Filter", "{61756678, 48506173, 4b657947}", "", "filter",
                               "audio"};
constexpr EffectHead kBandPass{"Band Pass Filter", "{61756678, 42506173, 4b657947}", "", "filter",
                               "audio"};

// A `parameter` without its value.
struct ParameterForm {
    std::string_view id;
    std::string_view name;
    std::string_view min;
    std::string_view max;
};

constexpr ParameterForm kLevelForm{"level", "Level", "0", "3.98109"};
constexpr ParameterForm kGainForm{"Gain(dB)", "Gain(dB)", "-96", "96"};
// Other editors call it "pan".
constexpr ParameterForm kPanForm{"level", "Pan", "-1", "1"};

// A parameter of a component and what its value, which may be animated, comes from.
struct AudioParamRow {
    int position; // among the component's params; the first one is its bypass
    ParameterForm form;
    double (*map)(double value, double sampleRate);
    std::string_view missing = {}; // the project's value; empty: no parameter without a value
};

constexpr std::string_view kNeutralVolume = "0.5";

constexpr AudioParamRow kVolumeLevel[] = {
    {1, kLevelForm, [](double value, double) { return LevelOfVolume(value); }, kNeutralVolume},
};
constexpr AudioParamRow kVolumeGain[] = {
    {1, kGainForm, [](double value, double) { return DecibelsOfVolume(value); }, kNeutralVolume},
};
constexpr AudioParamRow kCutoff[] = {
    {1, {"Frequency", "Frequency", "0", "20000"}, CutoffOfScale},
};
constexpr AudioParamRow kBand[] = {
    {1, {"Frequency", "Frequency", "0", "20000"}, CutoffOfScale},
    {2, {"Q", "Q", "0.7071", "20"}, [](double value, double) { return ResonanceOfScale(value); }},
};

enum class Form { Any, Plain, HandOff };

struct AudioEffectRow {
    std::string_view start; // of the match name, before the channel type
    Form form;
    const EffectHead& head;
    std::span<const AudioParamRow> params;
};

constexpr AudioEffectRow kAudioEffects[] = {
    {"Internal Volume", Form::Plain, kLevels, kVolumeLevel},
    {"Internal Volume", Form::HandOff, kGain, kVolumeGain},
    {"Internal Lowpass", Form::Any, kLowPass, kCutoff},
    {"Internal Highpass", Form::Any, kHighPass, kCutoff},
    {"Internal Bandpass", Form::Any, kBandPass, kBand},
};

const AudioEffectRow* FindRow(const ExportContext& context, std::string_view matchName)
{
    const Form form = context.IsHandOff() ? Form::HandOff : Form::Plain;
    for (const AudioEffectRow& row : kAudioEffects)
        if (matchName.starts_with(row.start) && (row.form == Form::Any || row.form == form))
            return &row;
    return nullptr;
}

// How the numbers of an item count.
struct SoundRates {
    Ticks frameTicks = 1; // of keyframes; 1 in tick form
    double sampleRate = 48000;
};

SoundRates RatesOf(const ItemRecord& record, ConstHandle chain)
{
    SoundRates rates;
    if (record.timing.unit == TimeUnit::Frames)
        rates.frameTicks = record.timing.rate;
    if (const Ticks sample = Int64Property(chain, "FrameRate"); IsRate(sample))
        rates.sampleRate = static_cast<double>(DivTicks(kTicksPerSecond, sample));
    return rates;
}

ConstHandle ParamAt(ConstHandle component, int position)
{
    for (const ConstHandle param : ParamsOf(component))
        if (position-- == 0)
            return param;
    return {};
}

// Attaches a `filter` whose effect says only that it is one of sound.
ObjectHandle AddAudioFilter(Document& document, ObjectHandle element)
{
    const ObjectHandle effect = document.NewObject("effect");
    effect.SetPropertyShared("mediatype", "audio");
    const ObjectHandle filter = document.NewObject("filter");
    filter.AddChild(effect);
    element.AddChild(filter);
    return effect;
}

ObjectHandle AddNumber(Document& document, const ParameterForm& form, double value,
                       ObjectHandle effect)
{
    return AddParameter(document, effect,
                        {.id = form.id,
                         .name = form.name,
                         .min = form.min,
                         .max = form.max,
                         .value = NumberText(value)});
}

void TranslateParam(ExportContext& context, const AudioParamRow& row, const SoundRates& rates,
                    ConstHandle param, ObjectHandle effect)
{
    if (row.missing.empty() && StartText(param).empty())
        return;
    const auto map = [&](double value) { return row.map(value, rates.sampleRate); };
    const double value = CurrentNumber(param, ParseDouble(row.missing));
    const ObjectHandle parameter = AddNumber(context.document, row.form, map(value), effect);
    WriteKeyframes(context.document, parameter, param.GetProperty("Keyframes"), rates.frameTicks,
                   map);
}

void TranslateComponent(ExportContext& context, const AudioEffectRow& row, const SoundRates& rates,
                        ConstHandle component, ObjectHandle element)
{
    const ObjectHandle effect = AddFilter(context.document, row.head, element);
    WriteSwitches(component, effect);
    for (const AudioParamRow& param : row.params)
        TranslateParam(context, param, rates, ParamAt(component, param.position), effect);
}

} // namespace

void TranslateGain(ExportContext& context, const ItemRecord& record, ObjectHandle element)
{
    constexpr double kGainOfBarsAndTone = 0.2513; // of a tone that the project leaves as it is
    if (!record.clip.HasProperty("Gain"))
        return;
    const ObjectHandle effect = AddAudioFilter(context.document, element);
    double gain = DoubleProperty(record.clip, "Gain");
    if (gain == 1.0) {
        if (MediaKindOf(record.media) != MediaKind::BarsAndTone)
            return;
        gain = kGainOfBarsAndTone;
    }
    WriteEffectHead(context.IsHandOff() ? kLevels : kGain, effect);
    if (context.IsHandOff())
        AddNumber(context.document, kLevelForm, LevelOfVolume(gain), effect);
    else
        AddNumber(context.document, kGainForm, DecibelsOfGain(gain), effect);
}

void TranslateAudioComponents(ExportContext& context, const TrackContext& track,
                              const ItemRecord& record, ObjectHandle element)
{
    const ConstHandle chain = ChainOfOwner(ItemCore(record.item));
    const SoundRates rates = RatesOf(record, chain);
    for (const ConstHandle component : ComponentsOf(chain)) {
        const std::string_view matchName = ComponentMatchName(component);
        if (const AudioEffectRow* const row = FindRow(context, matchName))
            TranslateComponent(context, *row, rates, component, element);
        else
            AddIssue(context, ExportIssue::EffectNotTranslated,
                     PlaceOfItem(track, record.Start(), record.subClip.GetProperty("Name")),
                     matchName);
    }
}

void TranslatePan(ExportContext& context, const ItemRecord& record, ObjectHandle element)
{
    constexpr struct {
        Name key;
        Name newKey;
    } kCarried[] = {
        {"CurrentValue", "PannerCurrentValue"},
        {"Keyframes", "PannerKeyframes"},
        {"StartKeyframe", "PannerStartKeyframe"},
        {"IsInverted", "PannerIsInverted"},
        {"Name", "PannerName"},
    };
    constexpr AudioParamRow kRow{0, kPanForm,
                                 [](double value, double) { return PanOfProject(value); }};
    const ConstHandle param = ParamAt(PanProcessorOf(record.item), kRow.position);
    for (const auto& [key, newKey] : kCarried)
        CopyProperty(param, key, element, newKey);
    if (!StartText(param).empty())
        TranslateParam(context, kRow, RatesOf(record, {}), param,
                       AddFilter(context.document, kPan, element));
}

void TranslateTrackVolume(ExportContext& context, ConstHandle audioTrack, ObjectHandle element)
{
    constexpr double kAtRest = 1.0;
    const double volume = CurrentNumber(FaderParam(audioTrack, "Volume"), kAtRest);
    if (volume == kAtRest)
        return;
    const ObjectHandle effect = AddFilter(context.document, kLevels, element);
    AddNumber(context.document, kLevelForm, LevelOfFader(volume), effect);
}

void ReportMasterAudioEffects(ExportContext& context, MasterClip masterClip)
{
    for (const ConstHandle component : ComponentsOf(AudioChainOfMaster(masterClip)))
        if (const std::string_view matchName = ComponentMatchName(component);
            !FindRow(context, matchName))
            AddIssue(context, ExportIssue::EffectNotTranslatedHeadless,
                     {.clip = masterClip.GetProperty("Name"), .trackKind = 2}, matchName);
}

} // namespace XPJ::RVX

#include "effects/audio_pan.h"

#include "core/numbers.h"
#include "effects/effect_elements.h"
#include "effects/effect_losses.h"
#include "effects/keyframes.h"
#include "effects/param_losses.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kCenter = "0.5";
constexpr std::string_view kLeft = "0";

// The pan that an item carries as the project has it: all of these, or none counts.
constexpr struct {
    Name field;
    Name carried;
    bool isRequired;
} kCarriedFields[] = {
    {"CurrentValue", "PannerCurrentValue", true},
    {"Keyframes", "PannerKeyframes", true},
    {"StartKeyframe", "PannerStartKeyframe", true},
    {"IsInverted", "PannerIsInverted", true},
    {"Name", "PannerName", false},
};

const AudioParamRow& PanRow()
{
    return kAudioPan.params.front();
}

ObjectHandle MakePanParam(Document& document, std::string_view value)
{
    return MakeParam(document, ParamKind::Audio, {.name = PanRow().param.name, .value = value});
}

ObjectHandle CarriedPan(Document& document, ConstHandle item)
{
    for (const auto& row : kCarriedFields)
        if (row.isRequired && !item.HasProperty(row.carried))
            return {};
    const ObjectHandle param = MakePanParam(document, item.GetProperty("PannerCurrentValue"));
    if (HasValue(item, "PannerStartKeyframe"))
        param.SetProperty("StartKeyframe", item.GetProperty("PannerStartKeyframe"));
    param.SetProperty("IsInverted", item.GetProperty("PannerIsInverted"));
    SetKeyframes(param, item.GetProperty("PannerKeyframes"));
    return param;
}

// What this system's own documents call the pan.
constexpr std::string_view kOwnPanId = "level";

ConstHandle PanSource(ConstHandle effect)
{
    const ConstHandle pan = FindParameter(effect, PanRow().param.xmeml.id);
    return pan ? pan : FindParameter(effect, kOwnPanId);
}

double Bound(ConstHandle source, Name key, double missing)
{
    const double bound = DoubleProperty(source, key);
    return bound != 0 ? bound : missing;
}

// Keyframes of other systems run the other way round than their start values.
Clamp ClampOf(ConstHandle source, const ItemAudio& audio)
{
    const double min = Bound(source, "valuemin", -1.0);
    const double max = Bound(source, "valuemax", 1.0);
    return {.offsetFrames = audio.delayFrames,
            .valueOffset = -min,
            .valueFactor = 1.0 / (max - min),
            .invert = source.GetProperty("authoringApp") != "VelaPro",
            .reals = RecordReals::Audio};
}

std::string StartPan(ConstHandle source, const ItemAudio& audio, Clamp clamp)
{
    const std::string_view value = StaticValue(source, {});
    if (value.empty())
        return std::string(audio.stereoSource ? kCenter : kLeft);
    clamp.invert = false;
    return NumberText(ClampedValue(ParseDouble(value), clamp));
}

// A panner has one parameter.
ConstHandle FirstParam(ConstHandle processor)
{
    for (const ConstHandle param : ParamsOf(processor))
        return param;
    return {};
}

// Those of surround panners, behind the one that documents have.
void ReportOthers(const EffectContext& context, ConstHandle processor)
{
    bool isFirst = true;
    for (const ConstHandle param : ParamsOf(processor)) {
        if (!isFirst && HasValue(param, "Keyframes"))
            ReportUnwritten(context, {.name = PanRow().param.name}, nullptr, param);
        isFirst = false;
    }
}

} // namespace

ObjectHandle TranslatePan(const EffectContext& context, const ItemAudio& audio, ConstHandle item)
{
    const ConstHandle effect = FindAudioEffect(item, kAudioPan.xmeml.id);
    if (!effect)
        return {};
    if (const ObjectHandle carried = CarriedPan(context.document, item))
        return carried;
    const ConstHandle source = PanSource(effect);
    if (!source) {
        context.AddIssue(ImportIssue::InvalidPanFilterParameters, effect);
        return {};
    }
    const Clamp clamp = ClampOf(source, audio);
    RemarkOnKeyframes(context, effect, source);
    const ObjectHandle param = MakePanParam(context.document, StartPan(source, audio, clamp));
    SetKeyframes(param, ClampedKeyframes(source, context.frameTicks, clamp));
    return param;
}

void PanToXmeml(const EffectContext& context, ConstHandle processor, ObjectHandle item)
{
    const ConstHandle param = FirstParam(processor);
    for (const auto& row : kCarriedFields)
        CopyProperty(param, row.field, item, row.carried);
    ReportOthers(context, processor);
    if (StartText(param).empty())
        return;
    AudioParamRow row = PanRow();
    row.param.xmeml.id = kOwnPanId;
    AddAudioParameter(context, row, param, AddFilter(context.document, kAudioPan.xmeml, item));
}

} // namespace XPJ

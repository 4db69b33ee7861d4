#include "export/video_effects.h"

#include "export/color_corrector.h"
#include "export/crop_and_mattes.h"
#include "export/effect_parts.h"
#include "export/kept_effects.h"
#include "export/keys_and_blur.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace XPJ::RVX {

namespace {

enum class Rule {
    Plain,
    Approximate,   // always with a finding
    BehindSetting, // unknown unless the host asks for it
};

struct EffectRow {
    std::string_view matchName;
    void (*write)(const EffectSource& source, ObjectHandle effect);
    Rule rule = Rule::Plain;
};

constexpr EffectRow kEffects[] = {
    {"KX.ORRN Text", ExportText},
    {"KX.ORRN Shape", ExportShape},
    {"KX.ORRN AECrop", ExportCrop},
    {"KX.ORRN Gaussian Blur 2", ExportGaussianBlur},
    {"KX.ORRN Legacy Key Luma", ExportLumaKey},
    {"KX.ORRN Gradiva", ExportLook},
    {"KX.ORRN Garbage Matte", ExportFourPointMatte},
    {"KX.ORRN Garbage Matte 8", ExportEightPointMatte},
    {"KX.ORRN Geometry", ExportTransform, Rule::BehindSetting},
    {"KX.ORRN Three-Way Color Corrector", ExportColorCorrector, Rule::Approximate},
};

const EffectRow* FindRow(const ExportContext& context, std::string_view matchName)
{
    for (const EffectRow& row : kEffects)
        if (row.matchName == matchName)
            return row.rule == Rule::BehindSetting && !context.options.exportTransformEffect
                       ? nullptr
                       : &row;
    return nullptr;
}

std::string_view DisplayName(ConstHandle component)
{
    const ConstHandle core = ComponentCore(component);
    return core.HasProperty("DisplayName") ? core.GetProperty("DisplayName")
                                           : ComponentMatchName(component);
}

// An effect of a file stands in no sequence.
void Report(ExportContext& context, const EffectOwner& owner, ExportIssue kind,
            std::string_view subject)
{
    if (owner.track)
        AddIssue(context, kind, PlaceOfItem(*owner.track, owner.start, owner.clipName), subject);
    else
        AddIssue(context, kind,
                 {.clip = owner.clipName,
                  .trackKind = kind == ExportIssue::EffectNotTranslatedHeadless ? 1 : kNoTrack},
                 subject);
}

void ReportUnknown(ExportContext& context, const EffectOwner& owner, ConstHandle component)
{
    Report(context, owner,
           owner.track ? ExportIssue::EffectNotTranslated
                       : ExportIssue::EffectNotTranslatedHeadless,
           DisplayName(component));
}

void TranslateComponent(ExportContext& context, const EffectOwner& owner,
                        const EffectSource& source, ObjectHandle element)
{
    const EffectRow* const row = FindRow(context, ComponentMatchName(source.component));
    if (!row)
        return ReportUnknown(context, owner, source.component);
    const ObjectHandle effect = context.document.NewObject("effect");
    row->write(source, effect);
    WriteSwitches(source.component, effect);
    if (row->rule == Rule::Approximate)
        Report(context, owner, ExportIssue::ThreeWayApproximation, DisplayName(source.component));
    const ObjectHandle filter = context.document.NewObject("filter");
    filter.AddChild(effect);
    element.AddChild(filter);
}

} // namespace

void TranslateVideoComponents(ExportContext& context, const EffectOwner& owner, ConstHandle chain,
                              Ticks frameTicks, ObjectHandle element)
{
    for (const ConstHandle component : ComponentsOf(chain)) {
        const std::string_view matchName = ComponentMatchName(component);
        if (matchName != kMotionMatch && matchName != kOpacityMatch)
            TranslateComponent(context, owner, {context.document, component, frameTicks}, element);
    }
}

} // namespace XPJ::RVX

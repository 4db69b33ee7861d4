#include "effects/opacity.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/effect_losses.h"
#include "effects/keyframes.h"
#include "effects/param_losses.h"
#include "effects/values.h"

namespace XPJ {

namespace {

constexpr const ParamRow& kAmount = kOpacityParams[0];
constexpr const ParamRow& kFirstMode = kOpacityParams[1];
constexpr const ParamRow& kSecondMode = kOpacityParams[2];
constexpr std::string_view kFull = "100."; // of an item without an opacity filter

// A mode and its numbers in the two lists.
struct BlendMode {
    std::string_view compositeMode;
    int first;
    int second;
    bool supported = true;
};

constexpr BlendMode kNormal = {"", 18, 0};
constexpr BlendMode kBlendModes[] = {
    {"add", 14, 12},        {"difference", 5, 23},
    {"multiply", 17, 4},    {"screen", 22, 10},
    {"texturize", 19, 15},  {"hardlight", 8, 17},
    {"softlight", 23, 16},  {"darken", 3, 3},
    {"lighten", 11, 9},     {"subtract", 18, 0, false},
    {"mask", 18, 0, false}, {"lumamask", 18, 0, false},
};

const BlendMode& FindBlendMode(std::string_view compositeMode)
{
    for (const BlendMode& row : kBlendModes)
        if (row.compositeMode == compositeMode)
            return row;
    return kNormal;
}

bool IsNormal(std::string_view compositeMode)
{
    return compositeMode.empty() || EqualsIgnoreCase(compositeMode, "normal");
}

// Opacity counts as animated even where it is not. The first parameter of the effect is meant,
// whatever its id is.
void AddAmount(const EffectContext& context, ConstHandle effect, ObjectHandle component)
{
    const ConstHandle parameter = effect.GetChild("parameter");
    ParamRow row = kAmount;
    if (!effect)
        row.value = kFull;
    const ObjectHandle param = MakeRowParam(context, row, parameter);
    if (!param.HasProperty("Keyframes"))
        SetKeyframes(param, KeyframeRecordText(0, StaticValue(parameter, row.value)));
    component.AddChild("Param", param);
}

// A mode that documents don't know, as AddCarriedMode wrote it; false without one.
bool TakeCarriedMode(const EffectContext& context, ConstHandle effect, ObjectHandle component)
{
    const ConstHandle first = FindCarried(context, kFirstMode, effect);
    if (!first)
        return false;
    component.AddChild("Param", MakeRowParam(context, kFirstMode, first));
    component.AddChild(
        "Param", MakeRowParam(context, kSecondMode, FindCarried(context, kSecondMode, effect)));
    return true;
}

void AddCarriedMode(const EffectContext& context, ConstHandle component, ObjectHandle effect)
{
    for (const ParamRow* const row : {&kFirstMode, &kSecondMode})
        AddCarried(context, *row, ParamOfRow(component, *row), effect);
}

void AddBlendMode(const EffectContext& context, std::string_view compositeMode,
                  ObjectHandle component)
{
    const BlendMode& mode = FindBlendMode(compositeMode);
    if (!mode.supported)
        context.AddIssue(ImportIssue::CompositeModeNotSupported, compositeMode);
    if (&mode == &kNormal && !IsNormal(compositeMode))
        context.AddRemark(RemarkKind::CompositeModeUnknown, {.name = compositeMode});
    const auto add = [&](const ParamRow& row, int value) {
        component.AddChild("Param", MakeParam(context.document, row.kind,
                                              {.name = row.name,
                                               .id = row.id,
                                               .value = IntToString(value),
                                               .lower = row.lower,
                                               .upper = row.upper,
                                               .control = row.control}));
    };
    add(kFirstMode, mode.first);
    add(kSecondMode, mode.second);
}

} // namespace

std::optional<std::string_view> CompositeModeOf(ConstHandle component)
{
    const int mode = StartInteger(ParamOfRow(component, kFirstMode), kNormal.first);
    if (mode == kNormal.first)
        return std::nullopt;
    for (const BlendMode& row : kBlendModes)
        if (row.first == mode)
            return row.compositeMode;
    return "";
}

ObjectHandle TranslateOpacity(const EffectContext& context, ConstHandle effect,
                              std::string_view compositeMode)
{
    const ObjectHandle component = MakeIntrinsicComponent(context.document, kOpacity.project);
    CopyBypass(effect, component);
    CopyExpanded(effect, component);
    AddAmount(context, effect, component);
    RemarkOnParameters(context, kOpacityParams, effect, effect.GetChild("parameter"));
    if (!compositeMode.empty() || !TakeCarriedMode(context, effect, component))
        AddBlendMode(context, compositeMode, component);
    return component;
}

void OpacityToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle item)
{
    const ObjectHandle effect = AddFilter(context.document, kOpacity.xmeml, item);
    WriteSwitches(component, effect);
    AddRowParameter(context, kAmount, component, effect);
    ReportParams(context, kOpacityParams, component, kSecondMode.id);
    const std::optional<std::string_view> mode = CompositeModeOf(component);
    if (!mode)
        return;
    if (!mode->empty() || !context.openInterchange)
        item.SetPropertyShared("compositemode", *mode);
    if (mode->empty()) {
        context.AddIssue(ExportIssue::CompositeModeNotSupported);
        AddCarriedMode(context, component, effect);
    }
}

} // namespace XPJ

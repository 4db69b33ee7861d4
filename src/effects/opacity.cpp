#include "effects/opacity.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "effects/values.h"
#include "effects/video_component.h"

namespace XPJ {

namespace {

constexpr ComponentNames kNames = {"KX.ORRN Opacity", "Opacity"};

// The first parameter of the effect is meant, whatever its id is.
constexpr ParamRow kOpacity = {1, ParamKind::Scalar, "Opacity", "opacity", "100", "0.", "100."};
constexpr std::string_view kFull = "100.";

// Projects number the modes twice.
struct BlendMode {
    std::string_view compositeMode;
    int first;
    int second; // from 1
    bool supported = true;
};

constexpr BlendMode kNormal = {"", 18, 1};
constexpr BlendMode kBlendModes[] = {
    {"add", 14, 13},        {"difference", 5, 24},
    {"multiply", 17, 5},    {"screen", 22, 11},
    {"texturize", 19, 16},  {"hardlight", 8, 18},
    {"softlight", 23, 17},  {"darken", 3, 4},
    {"lighten", 11, 10},    {"subtract", 18, 1, false},
    {"mask", 18, 1, false}, {"lumamask", 18, 1, false},
};

const BlendMode& FindBlendMode(std::string_view compositeMode)
{
    for (const BlendMode& row : kBlendModes)
        if (row.compositeMode == compositeMode)
            return row;
    return kNormal;
}

// Opacity counts as animated even where it is not.
void AddOpacity(const EffectContext& context, ObjectHandle effect, ObjectHandle component)
{
    const ObjectHandle parameter = effect.GetChild("parameter");
    ParamRow row = kOpacity;
    if (!effect)
        row.value = kFull;
    const ObjectHandle param = MakeRowParam(context, row, parameter);
    if (!param.HasProperty("Keyframes"))
        SetKeyframes(param, KeyframeRecordText(0, StaticValue(parameter, row.value)));
    component.AddChild("Param", param);
}

void AddBlendMode(const EffectContext& context, std::string_view compositeMode,
                  ObjectHandle component)
{
    const BlendMode& mode = FindBlendMode(compositeMode);
    if (!mode.supported)
        context.AddIssue(ImportIssue::CompositeModeNotSupported, compositeMode);
    const auto add = [&](int id, int control, int value, std::string_view upper) {
        component.AddChild("Param", MakeParam(context.document, ParamKind::Choice,
                                              {.name = "Blend Mode",
                                               .id = id,
                                               .value = IntToString(value),
                                               .lower = "0",
                                               .upper = upper,
                                               .control = control}));
    };
    add(2, 10, mode.first, "24");
    add(3, 7, mode.second - 1, "29");
}

} // namespace

ObjectHandle TranslateOpacity(const EffectContext& context, ObjectHandle effect,
                              std::string_view compositeMode)
{
    const ObjectHandle component = MakeIntrinsicComponent(context.document, kNames);
    CopyBypass(effect, component);
    CopyExpanded(effect, component);
    AddOpacity(context, effect, component);
    AddBlendMode(context, compositeMode, component);
    return component;
}

EffectListing ListOpacity()
{
    return {.family = "Intrinsic",
            .name = kNames.display,
            .effectId = "opacity",
            .parameters = {{kOpacity.name, true}, {"Blend Mode", false}},
            .note = "composite modes subtract, mask and lumamask become normal"};
}

} // namespace XPJ

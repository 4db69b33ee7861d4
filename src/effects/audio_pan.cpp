#include "effects/audio_pan.h"

#include "core/numbers.h"
#include "effects/effect_walk.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "effects/values.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kCentre = "0.5";
constexpr std::string_view kLeft = "0";

// A pan that an item carries as the project has it: all of these, or none counts.
constexpr Name kCarriedFields[] = {
    "PannerCurrentValue",
    "PannerStartKeyframe",
    "PannerKeyframes",
    "PannerIsInverted",
};

ObjectHandle MakePanParam(Document& document, std::string_view value)
{
    return MakeParam(document, ParamKind::Audio, {.name = "Pan", .value = value});
}

ObjectHandle CarriedPan(Document& document, ObjectHandle item)
{
    for (const Name& field : kCarriedFields)
        if (!item.HasProperty(field))
            return {};
    const ObjectHandle param = MakePanParam(document, item.GetProperty("PannerCurrentValue"));
    if (HasValue(item, "PannerStartKeyframe"))
        param.SetProperty("StartKeyframe", item.GetProperty("PannerStartKeyframe"));
    param.SetProperty("IsInverted", item.GetProperty("PannerIsInverted"));
    SetKeyframes(param, item.GetProperty("PannerKeyframes"));
    return param;
}

// This system's own documents call the pan a level.
ObjectHandle PanSource(ObjectHandle effect)
{
    const ObjectHandle pan = FindParameter(effect, "pan");
    return pan ? pan : FindParameter(effect, "level");
}

double Bound(ObjectHandle source, Name key, double missing)
{
    const double bound = DoubleProperty(source, key);
    return bound != 0 ? bound : missing;
}

// Keyframes of other systems run the other way round than their still values.
Clamp ClampOf(ObjectHandle source, const ItemSound& sound)
{
    const double min = Bound(source, "valuemin", -1.0);
    const double max = Bound(source, "valuemax", 1.0);
    return {.offsetFrames = sound.delayFrames,
            .valueOffset = -min,
            .valueFactor = 1.0 / (max - min),
            .invert = source.GetProperty("authoringApp") != "VelaPro",
            .reals = RecordReals::Audio};
}

std::string StillPan(ObjectHandle source, const ItemSound& sound, Clamp clamp)
{
    const std::string_view value = StaticValue(source, {});
    if (value.empty())
        return std::string(sound.stereoSource ? kCentre : kLeft);
    clamp.invert = false;
    return NumberText(ClampedValue(ParseDouble(value), clamp));
}

} // namespace

ObjectHandle TranslatePan(const EffectContext& context, const ItemSound& sound, ObjectHandle item)
{
    const ObjectHandle effect = FindAudioEffect(item, kAudioPan);
    if (!effect)
        return {};
    if (const ObjectHandle carried = CarriedPan(context.document, item))
        return carried;
    const ObjectHandle source = PanSource(effect);
    if (!source) {
        context.AddIssue(ImportIssue::InvalidPanFilterParameters, EffectName(effect));
        return {};
    }
    const Clamp clamp = ClampOf(source, sound);
    const ObjectHandle param = MakePanParam(context.document, StillPan(source, sound, clamp));
    SetKeyframes(param, ClampedKeyframes(source, context.frameTicks, clamp));
    return param;
}

} // namespace XPJ

#include "effects/distort.h"

#include "core/numbers.h"
#include "effects/parameters.h"

#include <algorithm>
#include <cmath>

namespace XPJ::RVX {

namespace {

constexpr EffectHead kDistort = {"Distort", "deformation", "motion", "motion"};

// How many times wider than high the Distort makes the item; 1 without one.
double StretchOf(ObjectHandle item)
{
    const ObjectHandle aspect = FindParameter(FindEffect(item, kDistort.id), "aspect");
    return RatioOfAspect(ParseDouble(aspect.GetProperty("value")));
}

void RemoveDistort(ObjectHandle item)
{
    for (const ObjectHandle filter : item.GetChildren("filter"))
        if (filter.GetChild("effect").GetProperty("effectid") == kDistort.id) {
            item.RemoveChild(filter);
            return;
        }
}

void MultiplyValue(ObjectHandle node, double factor)
{
    node.SetProperty("value", NumberText(ParseDouble(node.GetProperty("value")) * factor));
}

void MultiplyScale(Document& document, ObjectHandle item, double factor)
{
    const ObjectHandle motion = FindEffect(item, kBasicMotion.id);
    if (!motion) {
        AddScaleParameter(document, 100 * factor, AddFilter(document, kBasicMotion, item));
        return;
    }
    const ObjectHandle scale = FindParameter(motion, "scale");
    MultiplyValue(scale, factor);
    for (const ObjectHandle keyframe : scale.GetChildren("keyframe"))
        MultiplyValue(keyframe, factor);
}

} // namespace

ObjectHandle AddScaleParameter(Document& document, double percent, ObjectHandle effect)
{
    return AddParameter(
        document, effect,
        {.id = "scale", .name = "Scale", .min = "0", .max = "1000", .value = NumberText(percent)});
}

double AspectOfRatio(double ratio)
{
    if (ratio > 1)
        return -(100 * ratio - 100);
    return ratio < 1 ? 100 / ratio - 100 : 0;
}

double RatioOfAspect(double aspect)
{
    if (aspect > 0)
        return 100 / (aspect + 100);
    return aspect < 0 ? (100 - aspect) / 100 : 1;
}

void ApplyAspect(Document& document, ObjectHandle item, double aspect)
{
    if (const ObjectHandle distort = FindEffect(item, kDistort.id)) {
        const ObjectHandle parameter = FindParameter(distort, "aspect");
        const double present = RatioOfAspect(ParseDouble(parameter.GetProperty("value")));
        parameter.SetProperty("value", NumberText(AspectOfRatio(present * RatioOfAspect(aspect))));
        return;
    }
    AddParameter(document, AddFilter(document, kDistort, item),
                 {.id = "aspect",
                  .name = "Aspect",
                  .min = "-10000",
                  .max = "10000",
                  .value = NumberText(aspect)});
}

void CompensatePixelAspect(Document& document, double clipAspect, double sequenceAspect,
                           ObjectHandle item)
{
    constexpr double kAboutEqual = 0.0001;
    if (!(std::abs(clipAspect - sequenceAspect) > kAboutEqual))
        return;
    const double stretch = StretchOf(item);
    const double ratio = clipAspect / sequenceAspect;
    if (std::abs(stretch * ratio - 1) > kAboutEqual)
        ApplyAspect(document, item, AspectOfRatio(ratio));
    else
        RemoveDistort(item);
    const double larger = std::max(stretch * ratio, 1.0) / std::max(stretch, 1.0);
    if (larger != 1)
        MultiplyScale(document, item, larger);
}

} // namespace XPJ::RVX

#include "effects/distort.h"

#include "core/numbers.h"
#include "effects/motion.h"
#include "effects/values.h"

#include <algorithm>
#include <cmath>

namespace XPJ {

namespace {

constexpr const ParamRow& kAspect = kDistortParams[0];

// How many times wider than high the Distort makes the item; 1 without one.
double StretchOf(ObjectHandle item)
{
    const ObjectHandle aspect =
        FindParameter(FindEffect(item, kDistort.xmeml.id), kAspect.xmeml.id);
    return RatioOfAspect(ParseDouble(aspect.GetProperty("value")));
}

void RemoveDistort(ObjectHandle item)
{
    for (const ObjectHandle filter : item.GetChildren("filter"))
        if (filter.GetChild("effect").GetProperty("effectid") == kDistort.xmeml.id) {
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
    const ObjectHandle motion = FindEffect(item, kMotion.xmeml.id);
    if (!motion) {
        AddScaleParameter(document, 100 * factor, AddFilter(document, kMotion.xmeml, item));
        return;
    }
    const ObjectHandle scale = FindParameter(motion, kMotionParams[1].xmeml.id);
    MultiplyValue(scale, factor);
    for (const ObjectHandle keyframe : scale.GetChildren("keyframe"))
        MultiplyValue(keyframe, factor);
}

} // namespace

bool IsAspectOnly(ConstHandle effect)
{
    return IsNeutral(kDistortParams, effect, kAspect.xmeml.id);
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
    if (const ObjectHandle distort = FindEffect(item, kDistort.xmeml.id)) {
        const ObjectHandle parameter = FindParameter(distort, kAspect.xmeml.id);
        const double present = RatioOfAspect(ParseDouble(parameter.GetProperty("value")));
        parameter.SetProperty("value", NumberText(AspectOfRatio(present * RatioOfAspect(aspect))));
        return;
    }
    AddParameter(document, kAspect.xmeml, NumberText(aspect),
                 AddFilter(document, kDistort.xmeml, item));
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

} // namespace XPJ

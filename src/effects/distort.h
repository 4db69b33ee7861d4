// The Distort of a picture item, whose `aspect` tells how far it is stretched.
#pragma once

#include "effects/xmeml_filter.h"

namespace XPJ::RVX {

inline constexpr EffectHead kBasicMotion = {"Basic Motion", "basic", "motion", "motion"};

// The `scale` of a Basic Motion, in percent.
ObjectHandle AddScaleParameter(Document& document, double percent, ObjectHandle effect);

// Between the ratio of width to height and an `aspect`: below 0 for a picture that is widened,
// above 0 for one that is heightened.
//   AspectOfRatio(2) == -100, AspectOfRatio(0.5) == 100, AspectOfRatio(1) == 0
double AspectOfRatio(double ratio);
double RatioOfAspect(double aspect);

// Stretches an item on top of what its Distort does already.
void ApplyAspect(Document& document, ObjectHandle item, double aspect);

// Makes good for the difference of two pixel aspects. The scale stands for the larger side, as the
// document's Distort only ever makes one smaller.
void CompensatePixelAspect(Document& document, double clipAspect, double sequenceAspect,
                           ObjectHandle item);

} // namespace XPJ::RVX

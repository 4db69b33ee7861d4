// The Distort of documents. Projects have none: its aspect goes to the scales of Motion, and comes
// from them and from the pixel aspects.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// The fourth corner, `llcorner`, is not judged.
inline constexpr ParamRow kDistortParams[] = {
    {.name = "Aspect",
     .xmeml = {"aspect", "Aspect", "-10000", "10000", "", "0"},
     .animates = false},
    XmemlOnly({.id = "ulcorner", .neutral = "-0.5:-0.5"}, ParamKind::Point),
    XmemlOnly({.id = "urcorner", .neutral = "0.5:-0.5"}, ParamKind::Point),
    XmemlOnly({.id = "lrcorner", .neutral = "0.5:0.5"}, ParamKind::Point),
};

inline constexpr ParamRow kLowerLeftCorner =
    XmemlOnly({.id = "llcorner", .neutral = "-0.5:0.5"}, ParamKind::Point);

inline constexpr EffectRow kDistort = {
    .xmeml = {"deformation", "Distort", "motion", "motion"},
    .name = "Distort",
    .outcome = Outcome::Approximated,
    .note = "the aspect goes to the scales of Motion; moved corners are dropped",
    .params = kDistortParams,
    .toProject = nullptr, // by Motion
    .toXmeml = nullptr,
    .isIntrinsic = true,
};

// A Distort that leaves its corners where they are and changes nothing but the aspect.
bool IsAspectOnly(ConstHandle effect);

// Between the ratio of width to height and an `aspect`: below 0 for video that is widened, above 0
// for video that is heightened.
//   AspectOfRatio(2) == -100, AspectOfRatio(0.5) == 100, AspectOfRatio(1) == 0
double AspectOfRatio(double ratio);
double RatioOfAspect(double aspect);

// Stretches a written item in addition to what its Distort does already.
void ApplyAspect(Document& document, ObjectHandle item, double aspect);

// Compensates the difference of two pixel aspects on a written item. The scale is that of the
// larger side, as the Distort of documents only ever makes one smaller.
void CompensatePixelAspect(Document& document, double clipAspect, double sequenceAspect,
                           ObjectHandle item);

} // namespace XPJ

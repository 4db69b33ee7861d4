// Motion of an item: position, scale, rotation, anchor point. The pixel aspect of the clip, the
// aspect of a Distort and the size of raw footage go into its two scales.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// clang-format off
inline constexpr ParamRow kMotionParams[] = {
    {1, ParamKind::Point,    "Position",            "",    "",        "",       {"center", "Center"}},
    {2, ParamKind::Scalar,   "Scale",               "1.0", "0.",      "600.",   {"scale", "Scale", "0", "1000"}},
    {3, ParamKind::Scalar,   "Scale Width",         "1.0", "0.",      "600.",   {"scale", "Scale", "0", "1000"}},
    {4, ParamKind::CheckBox, " "}, // uniform scale
    {5, ParamKind::Scalar,   "Rotation",            "0",   "-32768.", "32767.", {"rotation", "Rotation", "-8640", "8640"}},
    {6, ParamKind::Point,    "Anchor Point",        "",    "",        "",       {"centerOffset", "Anchor Point"}},
    {7, ParamKind::Slider,   "Anti-flicker Filter", "0.",  "0.",      "1.",     {"antiflicker", "Anti-flicker Filter", "0.0", "1.0"}},
};
// clang-format on

inline constexpr EffectRow kMotion = {
    .xmeml = {"basic", "Basic Motion", "motion", "motion"},
    .project = {"KX.ORRN Motion", "Motion"},
    .name = "Motion",
    .note = "keyframe interpolation is not carried",
    .params = kMotionParams,
    .toProject = nullptr, // by the functions below
    .toXmeml = nullptr,
    .isIntrinsic = true,
};

// Factors between scales of the document and of the project.
struct ScaleFactors {
    double x = 1.0;
    double y = 1.0;
};

// `distort` may be null.
ScaleFactors ScaleFactorsOf(const EffectContext& context, ConstHandle distort);

// The Motion component; null where it would change nothing. `source` is a "basic" effect, or a
// Basic 3D that moves its clip; may be null, like `distort`.
ObjectHandle TranslateMotion(const EffectContext& context, ConstHandle source, ConstHandle distort);

// The `scale` of a Basic Motion, in percent.
ObjectHandle AddScaleParameter(Document& document, double percent, ObjectHandle effect);

// Puts a Basic Motion on the item. The result is how many times wider than high it is stretched,
// which a Distort is to do.
double MotionToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle item);

} // namespace XPJ

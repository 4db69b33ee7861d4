// Motion of an item: position, scale, rotation, anchor point. The pixel aspect of the clip, the
// aspect of a Distort and the size of raw footage go into its two scales.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// clang-format off
inline constexpr ParamRow kMotionParams[] = {
    {1, ParamKind::Point,    "Position",            "",    "",        "",       {"center", "Center", "", "", "", "0:0"}},
    {2, ParamKind::Scalar,   "Scale",               "1.0", "0.",      "600.",   {"scale", "Scale", "0", "1000", "", "100"}},
    {3, ParamKind::Scalar,   "Scale Width",         "1.0", "0.",      "600.",   {"scale", "Scale", "0", "1000", "", "100"}},
    {4, ParamKind::CheckBox, " "}, // uniform scale
    {5, ParamKind::Scalar,   "Rotation",            "0",   "-32768.", "32767.", {"rotation", "Rotation", "-8640", "8640", "", "0"}},
    {6, ParamKind::Point,    "Anchor Point",        "",    "",        "",       {"centerOffset", "Anchor Point", "", "", "", "0:0"}},
    {7, ParamKind::Slider,   "Anti-flicker Filter", "0.",  "0.",      "1.",     {"antiflicker", "Anti-flicker Filter", "0.0", "1.0", "", "0"}},
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

// ---- Basic 3D

// Basic 3D of documents: its turns out of the plane are an effect of the project too, while scale,
// center and rotation go to the Motion of the item.
// clang-format off
inline constexpr ParamRow kBasic3DParams[] = {
    {1, ParamKind::Scalar,   "Swivel",             "0",     "-32768",  "32767",  {"ry", "Y Axis Rotation", "-360", "360", "", "0"}},
    {2, ParamKind::Scalar,   "Tilt",               "0",     "-32768",  "32767",  {"rx", "X Axis Rotation", "-360", "360", "", "0"}},
    {3, ParamKind::Scalar,   "Distance to Image",  "0.0",   "-30000.", "30000."},
    {4, ParamKind::CheckBox, "Specular Highlight", "false"},
    {5, ParamKind::CheckBox, "Preview",            "false"},
    XmemlOnly({.id = "s", .neutral = "100"}),
    XmemlOnly({.id = "center", .neutral = "0:0"}, ParamKind::Point),
    XmemlOnly({.id = "rz", .neutral = "0"}),
};
// clang-format on

inline constexpr EffectRow kBasic3D = {
    .xmeml = {"Basic 3D", "Basic 3D", "Perspective"},
    .project = {"KX.ORRN Basic 3D", "Basic 3D"},
    .note = "scale, centre and rotation go to Motion",
    .params = kBasic3DParams,
    .toProject = nullptr, // by the chain, which knows the Motion
    .exported = Exported::InOpenInterchange,
};

struct Basic3D {
    ObjectHandle component = {}; // null without a turn out of the plane
    bool isMotionSource = false; // the Motion of the clip takes its parameters
};

Basic3D TranslateBasic3D(const EffectContext& context, ConstHandle effect);

} // namespace XPJ

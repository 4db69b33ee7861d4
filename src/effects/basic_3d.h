// Basic 3D of documents: its turns out of the plane are an effect of the project too, while scale,
// center and rotation go to the Motion of the item.
#pragma once

#include "effects/effect_row.h"

namespace XPJ {

// clang-format off
inline constexpr ParamRow kBasic3DParams[] = {
    {1, ParamKind::Scalar,   "Swivel",             "0",     "-32768",  "32767",  {.id = "ry", .neutral = "0"}},
    {2, ParamKind::Scalar,   "Tilt",               "0",     "-32768",  "32767",  {.id = "rx", .neutral = "0"}},
    {3, ParamKind::Scalar,   "Distance to Image",  "0.0",   "-30000.", "30000."},
    {4, ParamKind::CheckBox, "Specular Highlight", "false"},
    {5, ParamKind::CheckBox, "Preview",            "false"},
    XmemlOnly({.id = "s", .neutral = "100"}),
    XmemlOnly({.id = "center", .neutral = "0:0"}, ParamKind::Point),
    XmemlOnly({.id = "rz", .neutral = "0"}),
};
// clang-format on

inline constexpr EffectRow kBasic3D = {
    .xmeml = {.id = "Basic 3D", .name = "Basic 3D"},
    .project = {"KX.ORRN Basic 3D", "Basic 3D"},
    .note = "scale, centre and rotation go to Motion",
    .params = kBasic3DParams,
    .toProject = nullptr, // by the chain, which knows the Motion
    .toXmeml = nullptr,
};

struct Basic3D {
    ObjectHandle component = {}; // null without a turn out of the plane
    bool isMotionSource = false; // the Motion of the clip takes its parameters
};

Basic3D TranslateBasic3D(const EffectContext& context, ConstHandle effect);

} // namespace XPJ

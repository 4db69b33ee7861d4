// Text and shape effects of graphics. Their `effect`s carry the fields of the project, written by
// an export or generated from a title.
#pragma once

#include "effects/effect_row.h"

#include <cstddef>
#include <span>

namespace XPJ {

// The components of `effect`s. Blobs are carried byte for byte; an empty one gives no parameter. Of
// two parameters with one id the later counts.
bool TextToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components);
bool ShapeToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                    Components& components);
void TextToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect);
void ShapeToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                  ObjectHandle effect);

inline constexpr EffectRow kGraphicText = {
    .xmeml = {.id = "GraphicAndType", .category = "graphic"}, // goes by the user's name
    .project = {"KX.ORRN Text", "Text"},
    .toProject = TextToProject,
    .toXmeml = TextToXmeml,
    .keepsParams = true,
};
inline constexpr EffectRow kGraphicShape = {
    .xmeml = {"GraphicAndShape", "Shape", "graphic"},
    .project = {"KX.ORRN Shape", "Shape"},
    .toProject = ShapeToProject,
    .toXmeml = ShapeToXmeml,
    .keepsParams = true,
};

// ---- Parameters: blobs, then a transform, then sliders. Ids count from 1.

inline constexpr int kTextBlobs = 1;  // the source text
inline constexpr int kShapeBlobs = 2; // path and appearance

struct GraphicTransformRow {
    std::string_view name;
    int control;
    std::string_view lower;
    std::string_view upper;
    std::string_view value; // empty: the position
};

inline constexpr int kGroupStart = 11;
inline constexpr int kPoint = 6;
inline constexpr int kNumber = 2;
inline constexpr int kCheckBox = 4;
inline constexpr int kGroupEnd = 12;

inline constexpr GraphicTransformRow kGraphicTransform[] = {
    {"Transform", kGroupStart, "false", "false", "false"},
    {"Position", kPoint, "", "", ""},
    {"Scale", kNumber, "0.", "4000", "100.0"},
    {"Horizontal Scale", kNumber, "0.", "4000", "100.0"},
    {" ", kCheckBox, "false", "true", "true"}, // uniform scale
    {"Rotation", kNumber, "-32768", "32768", "0."},
    {"Opacity", kNumber, "0.", "100.", "100.0"},
    {"Anchor Point", kPoint, "", "", "0.5:0.5"},
    {"", kGroupEnd, "false", "false", "false"},
};

} // namespace XPJ

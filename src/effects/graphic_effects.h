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

// True for an item with one of the two among its filters.
bool HasGraphicEffect(ConstHandle item);

// ---- Parameters: blobs, then a transform, then sliders. Ids count from 1.

inline constexpr int kTextBlobs = 1;  // the source text
inline constexpr int kShapeBlobs = 2; // path and appearance

// Ids count from that of the last blob.
inline constexpr ParamRow kGraphicTransform[] = {
    {1, ParamKind::Separator11, "Transform", "false", "false", "false"},
    {2, ParamKind::Point, "Position"}, // as the title or shape states it
    {3, ParamKind::Scalar, "Scale", "100.0", "0.", "4000"},
    {4, ParamKind::Scalar, "Horizontal Scale", "100.0", "0.", "4000"},
    {5, ParamKind::CheckBox, " ", "true", "false", "true"}, // uniform scale
    {6, ParamKind::Scalar, "Rotation", "0.", "-32768", "32768"},
    {7, ParamKind::Scalar, "Opacity", "100.0", "0.", "100."},
    {8, ParamKind::Point, "Anchor Point", "0.5:0.5"},
    {9, ParamKind::Separator12, "", "false", "false", "false"},
};

} // namespace XPJ

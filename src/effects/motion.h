// Motion of an item: position, scale, rotation, anchor point. The pixel aspect of the clip, the
// aspect of a Distort and the size of raw footage go into its two scales.
#pragma once

#include "effects/effect_context.h"
#include "effects/effect_list.h"
#include "tree/object.h"

namespace XPJ {

// Factors between scales of the document and of the project.
struct ScaleFactors {
    double x = 1.0;
    double y = 1.0;
};

// `distort` may be null.
ScaleFactors ScaleFactorsOf(const EffectContext& context, ObjectHandle distort);

// The Motion component; null when there is nothing to say. `source` is a "basic" effect, or a Basic
// 3D that moves its clip; may be null, like `distort`.
ObjectHandle TranslateMotion(const EffectContext& context, ObjectHandle source,
                             ObjectHandle distort);

EffectListing ListMotion();

} // namespace XPJ

// The Motion of a picture item: where it stands in the frame, how large, how turned.
#pragma once

#include "effects/xmeml_filter.h"

namespace XPJ::RVX {

// The factors from fractions of the sequence's frame to those of the clip's.
struct FrameFactors {
    double horizontal = 1.0;
    double vertical = 1.0;
};

// Puts a Basic Motion on the item, and behind it a Distort for a picture that is stretched.
void ExportMotion(const EffectSource& source, const FrameFactors& factors, ObjectHandle item);

} // namespace XPJ::RVX

// Slugs that were read as sequences of black video.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Writes each sequence that an import made of a slug as a clip of that slug, and removes the clips
// of black video that such an import adds to the bin.
void WriteSlugsAsSlugs(DialectPass& pass);

} // namespace XPJ

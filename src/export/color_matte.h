// The colour of a matte.
#pragma once

#include "effects/values.h"
#include "export/export_context.h"

#include <string_view>

namespace XPJ::RVX {

// A packed colour of 32 bits, alpha in the top byte, then blue, green, red: in digits, or as the
// first bytes of base64 data. Opaque black if there is none.
//   MatteColour("/wAA/wEAAAA=") == red
Colour MatteColour(std::string_view importerPrefs);

// The `effect` that makes a `generatoritem` the matte of a medium.
ObjectHandle ColorMatteEffect(ExportContext& context, Media media);

} // namespace XPJ::RVX

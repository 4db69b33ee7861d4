// The color of a matte.
#pragma once

#include "effects/values.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// A packed color of 32 bits, alpha in the top byte, then blue, green, red: in digits, or as the
// first bytes of base64 data. Opaque black if there is none.
//   MatteColor("/wAA/wEAAAA=") == red
Color MatteColor(std::string_view importerPrefs);

// The `effect` that makes a `generatoritem` the matte of a project's Media.
ObjectHandle ColorMatteEffect(Document& document, ConstHandle media);

} // namespace XPJ

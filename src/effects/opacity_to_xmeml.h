// The Opacity of a picture item and the way it is laid over the tracks below.
#pragma once

#include "effects/xmeml_filter.h"

#include <optional>
#include <string_view>

namespace XPJ::RVX {

void ExportOpacity(const EffectSource& source, ObjectHandle item);

// `compositemode` of an Opacity component: empty for a mode that documents don't know, nothing for
// the normal one.
std::optional<std::string_view> CompositeModeOf(const EffectSource& source);

} // namespace XPJ::RVX

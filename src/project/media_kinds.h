// Media that the host generates: a four-character code, as a decimal number, is their path.
#pragma once

#include "project/accessors.h"

#include <string_view>

namespace XPJ {

enum class MediaKind {
    File,
    BarsAndTone,
    BlackVideo,
    ColorMatte,
    Graphic,
    Title, // a legacy title document
    TransparentVideo,
    Other, // a generator that is known by nothing but its code
};

MediaKind MediaKindOf(Media media);
// The path of a Media: a code in digits for one that the host generates.
std::string_view MediaPath(Media media);
// The code of generated media; empty for `File` and `Other`.
//   GeneratedPath(MediaKind::ColorMatte) == "1129270354"
std::string_view GeneratedPath(MediaKind kind);

} // namespace XPJ

// The texts of a legacy title document, as people read them: lines and how they look.
#pragma once

#include "effects/values.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// Lines of one look, in UTF-8 without entities.
struct LegacyTitleText {
    std::vector<std::string> lines;
    std::string family; // of the font
    std::string style;  // "Bold"
    int height = 0;     // of the letters, in lines of the frame
    Color color;        // opaque
};

// The texts of a document in their order; neighboring lines of one look are one text. Empty for
// bytes that are no such document; never fails.
std::vector<LegacyTitleText> ReadLegacyTitle(std::string_view document);

} // namespace XPJ

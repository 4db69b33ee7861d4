// The words of a legacy title document, for people: what a title says and how it looks.
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
    Color color;       // opaque
};

// The texts of a document in their order; neighboring lines of one look are one text. Empty for
// bytes that are no such document; never fails.
std::vector<LegacyTitleText> ReadLegacyTitle(std::string_view document);

} // namespace XPJ

// Fonts of titles as a listing names them. A generator and a title document have a family and a
// style, "Arial Bold Italic"; a text document has the name of a face, "Arial-BoldItalicMT".
#pragma once

#include "effects/title_fonts.h"

#include <string>
#include <string_view>

namespace XPJ::Inspection {

std::string GeneratorFont(std::string_view family, FontStyle style);

// The style of a face that a family has by itself stays: "Futura Condensed Medium".
std::string TitleDocumentFont(std::string_view family, std::string_view style);

// Whether both name one face, each as its own document does.
//   IsSameFont("Arial Bold", "Arial-BoldMT")
bool IsSameFont(std::string_view a, std::string_view b);

} // namespace XPJ::Inspection

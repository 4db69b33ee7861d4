// What a legacy title document shows, as people read it: lines, how they look, where they are.
#pragma once

#include "effects/title_reader.h"
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
    FontStyle face = FontStyle::Regular;
    Alignment alignment = Alignment::Left;
};

struct LegacyTitle {
    std::vector<LegacyTitleText> texts; // in their order; neighboring lines of one look are one
    TitleMotion motion = TitleMotion::Still;
    Point position; // in the units of a generator
    FrameSize frame;
};

// Without texts for bytes that are no such document; never fails.
LegacyTitle ReadLegacyTitle(std::string_view document);

} // namespace XPJ

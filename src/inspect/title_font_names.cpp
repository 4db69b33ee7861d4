#include "inspect/title_font_names.h"

#include "effects/title_reader.h"

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kStyleNames[] = {"", " Italic", " Bold", " Bold Italic"}; // by FontStyle

struct Face {
    std::string_view family;
    FontStyle style = FontStyle::Regular;
};

// The parts of a font as a generator names it.
Face FaceOf(std::string_view font)
{
    for (const FontStyle style : {FontStyle::BoldItalic, FontStyle::Bold, FontStyle::Italic}) {
        const std::string_view name = kStyleNames[static_cast<std::size_t>(style)];
        if (font.ends_with(name))
            return {font.substr(0, font.size() - name.size()), style};
    }
    return {font, FontStyle::Regular};
}

// Whether the tables make the other of a generator's font, without a fallback.
bool Becomes(const std::string_view font, std::string_view other)
{
    const Face face = FaceOf(font);
    const std::string plain = PostScriptName("", FontStyle::Regular);
    const std::string postScript = PostScriptName(face.family, face.style);
    if (postScript == other && (postScript != plain || face.family == TitleFont().family))
        return true;
    const LegacyFontRecord legacy = LegacyFont(face.family, face.style);
    return legacy.family == face.family && TitleDocumentFont(legacy.family, legacy.style) == other;
}

} // namespace

std::string GeneratorFont(std::string_view family, FontStyle style)
{
    return std::string(family).append(kStyleNames[static_cast<std::size_t>(style)]);
}

std::string TitleDocumentFont(std::string_view family, std::string_view style)
{
    std::string font(family);
    if (style.empty() || style == "Regular")
        return font;
    return font.append(" ").append(style == "BoldItalic" ? "Bold Italic" : style);
}

bool IsSameFont(std::string_view a, std::string_view b)
{
    return a == b || Becomes(a, b) || Becomes(b, a);
}

} // namespace XPJ::Inspection

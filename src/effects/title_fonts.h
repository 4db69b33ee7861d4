// Fonts of titles: what a family of the source's system is called in a project.
//
// A legacy title document and a text document name the same face differently; both names come from
// one table of families.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

enum class FontStyle { Regular = 0, Italic = 1, Bold = 2, BoldItalic = 3 };

// Name of a face in a text document; "LucidaGrande" for a family without one.
//   PostScriptName("Georgia", FontStyle::Bold) == "Georgia-Bold"
std::string PostScriptName(std::string_view family, FontStyle style);

struct TitleFace {
    std::string family;
    FontStyle style = FontStyle::Regular;
};

// The face that a text document names; for an unknown name that name as a family.
//   FaceOfPostScriptName("Georgia-Bold") is Georgia in bold
TitleFace FaceOfPostScriptName(std::string_view name);

// What a legacy title document states of a face.
struct LegacyFontRecord {
    std::string fullName;
    std::string_view family; // points into the table
    std::string_view style;  // "Bold", "Condensed Light"
    int type = 5;
    std::uint32_t category = 0;
};

// The record of a face; that of Apple Casual for an unknown family.
//   LegacyFont("Arial", FontStyle::Bold).fullName == "Arial-BoldMT"
LegacyFontRecord LegacyFont(std::string_view family, FontStyle style);

// True for a family that the documents of titles can name; another family replaces one that they
// can't. Text documents know fewer than legacy ones.
bool IsKnownFont(std::string_view family, bool isTextDocument);

} // namespace XPJ

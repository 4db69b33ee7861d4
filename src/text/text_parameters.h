// What a text document holds: a box, runs of text with a style each, and a shadow. The initial
// values are those of a key that a document doesn't state.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ::GVE {

// Share of a primary color, 0 to 1.
struct Channel {
    double value = 0;
    bool operator==(const Channel&) const = default;
};

// blue << 16 | green << 8 | red.
struct PackedColor {
    std::uint32_t value = 0;
    bool operator==(const PackedColor&) const = default;
};

// A value that is carried as its JSON text, whatever its kind.
struct AnyValue {
    std::string json;
    bool operator==(const AnyValue&) const = default;
};

struct StyleParam {
    std::string fontName = "LucidaGrande"; // PostScript name
    double fontSize = 36;                  // pixels
    Channel fillRed{1}, fillGreen{1}, fillBlue{1};
    bool fillVisible = true;
    Channel strokeRed, strokeGreen, strokeBlue;
    bool strokeVisible = false;
    double strokeWidth = 0; // pixels
    double kerning = 0;
    double tracking = 0;
    double tsumi = 0;
    double baselineShift = 0;
    AnyValue fillOverStroke{"true"};

    bool operator==(const StyleParam&) const = default;
};

PackedColor FillColor(const StyleParam& style);
PackedColor StrokeColor(const StyleParam& style);

struct TextRun {
    std::string text;
    StyleParam style;

    bool operator==(const TextRun&) const = default;
};

struct TextParameters {
    int width = 0; // of the box, in pixels; 0 is as wide as the text
    int height = 0;
    int alignment = 0; // index into the names of `AlignmentName`
    double leading = 0;
    double tabWidth = 400;
    std::vector<TextRun> runs;
    std::vector<StyleParam> styleSheet;
    TextRun defaultRun;
    bool verticalText = false;
    PackedColor shadowColor;
    bool shadowVisible = false;
    double shadowOpacity = 100; // percent
    double shadowAngle = 135;   // degrees
    double shadowOffset = 10;
    double shadowBlur = 0;
    bool indic = false;
    bool rightToLeft = false;
    bool ligatures = false;
    bool hindiDigits = false;

    bool operator==(const TextParameters&) const = default;
};

inline constexpr int kAlignments = 7;
enum Alignment { kLeftAlign = 0, kRightAlign = 1, kCenterAlign = 2 };

// "Left Align" and so on, as a menu names them; empty for an index that is none.
std::string_view AlignmentName(int alignment) noexcept;

} // namespace XPJ::GVE

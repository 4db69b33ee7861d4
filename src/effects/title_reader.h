// Titles and shapes of generators, as a `generatoritem` states them.
//
// Legacy title documents, text documents and the listings all read a generator here, so that a
// missing or unusable parameter means the same to each.
#pragma once

#include "effects/effect_context.h"
#include "effects/title_fonts.h"
#include "effects/values.h"
#include "tree/object.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace XPJ {

// A generator that is a title or a shape, for the list of effects.
struct GeneratorListing {
    std::string_view id;
    std::string_view note;
    std::span<const std::string_view> parts; // what is read of it
};
std::vector<GeneratorListing> ListGenerators();

bool IsTextTitle(ConstHandle generator);
bool IsShape(ConstHandle generator);

// True for the `parameterid` of a title's text, or of its font, size, style or color.
bool IsTextOrFont(std::string_view parameterId);

enum class TitleMotion { Still = 0, Scroll = 1, Crawl = 2 };
enum class Alignment { Left = 0, Center = 1, Right = 2 };

struct TitleFont {
    std::string_view family = "Lucida Grande";
    int size = 36; // for a frame of 480 lines; above 0
    FontStyle style = FontStyle::Regular;
    Alignment alignment = Alignment::Center;
    Color color = {255, 255, 255, 255};
};

// Lines in one font; at least one line. They are escaped as the document holds them.
struct TitleText {
    TitleFont font;
    std::vector<std::string_view> lines;
};

// Texts point into the document.
struct Title {
    std::string_view name; // of the generator
    TitleMotion motion = TitleMotion::Still;
    std::vector<TitleText> texts; // one; two for a lower third with a second text
    Point position;
    bool isOutlined = false;
    double lineWidth = 0;
    Color lineColor = {0, 0, 0, 255};
    FrameSize frame;

    // A font's size in lines of the frame.
    std::int64_t TextHeight(const TitleFont& font) const;
    // Lines of the frame over the 480 for which sizes are stated.
    double Scale() const { return frame.height / 480.0; }
};

// Never fails; what is missing or can't be used has its default. `frame` is that of the sequence
// or clip around the generator.
Title ReadTitle(ConstHandle generator, const FrameSize& frame);

// On what a title document, or the effect of a graphic, can't hold of a title or shape.
void RemarkOnTitle(const EffectContext& context, ConstHandle generator, bool isGraphic);

enum class ShapeKind { Rectangle, Square, Circle, Oval };

struct Shape {
    std::string_view name; // of the generator
    ShapeKind kind = ShapeKind::Rectangle;
    Point center;
    double size = 50;  // height in percent of the frame's; above 0
    double aspect = 1; // width over height; above 0, and 1 for squares and circles
    Color color = {255, 255, 255, 255};
    double lineWidth = 0;
    Color lineColor = {0, 0, 0, 255};
    FrameSize frame;
};

Shape ReadShape(ConstHandle generator, const FrameSize& frame);

} // namespace XPJ

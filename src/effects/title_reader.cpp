// The generators that are titles or shapes, and what their parameters mean.
#include "effects/title_reader.h"

#include "core/numbers.h"
#include "effects/effect_losses.h"

#include <algorithm>
#include <iterator>

namespace XPJ {

namespace {

enum class TextKind { Plain, Outlined, LowerThird };

struct TitleEffect {
    std::string_view id;
    TextKind kind;
    TitleMotion motion;
    std::string_view note; // of the list of effects
};

constexpr TitleEffect kTitleEffects[] = {
    {"Text", TextKind::Plain, TitleMotion::Still, "tracking, leading and aspect are lost"},
    {"Outline Text", TextKind::Outlined, TitleMotion::Still,
     "its outline comes along in a graphic only, its background is lost"},
    {"Scrolling Text", TextKind::Plain, TitleMotion::Scroll, "stands still as a graphic"},
    {"Crawl", TextKind::Plain, TitleMotion::Crawl, "stands still as a graphic"},
    {"Lower 3rd", TextKind::LowerThird, TitleMotion::Still,
     "both texts share style and alignment; its background is lost"},
};

struct ShapeEffect {
    std::string_view id;
    ShapeKind kind;
    bool hasAspect;
};

constexpr ShapeEffect kShapeEffects[] = {
    {"Rectangle", ShapeKind::Rectangle, true},
    {"Square", ShapeKind::Square, false},
    {"Circle", ShapeKind::Circle, false},
    {"Oval", ShapeKind::Oval, true},
};

// What is read of them.
constexpr std::string_view kTitleParts[] = {"Text",      "Font",  "Size",    "Style",
                                            "Alignment", "Color", "Position"};
constexpr std::string_view kShapeParts[] = {"Size", "Position", "Color", "Line"};

enum class Field {
    Family,
    Size,
    Style,
    Alignment,
    Color,
    Text,
    Origin,
    Center,
    LineColor,
    LineWidth,
};

// Which title has a parameter.
enum class Of { Every, Outlined, LowerThird };

struct TitleParameter {
    std::string_view id;
    Field field;
    Of of = Of::Every;
    std::size_t text = 0; // the second of a lower third is 1
};

constexpr TitleParameter kTitleParameters[] = {
    {"fontname", Field::Family},
    {"font", Field::Family},
    {"fontsize", Field::Size},
    {"size", Field::Size},
    {"fontstyle", Field::Style},
    {"style", Field::Style},
    {"fontalign", Field::Alignment},
    {"align", Field::Alignment},
    {"fontcolor", Field::Color},
    {"textcolor", Field::Color},
    {"str", Field::Text},
    {"origin", Field::Origin},
    {"center", Field::Center},
    {"linecolor", Field::LineColor, Of::Outlined},
    {"linewidth", Field::LineWidth, Of::Outlined},
    {"str1", Field::Text, Of::LowerThird, 0},
    {"str2", Field::Text, Of::LowerThird, 1},
    {"font1", Field::Family, Of::LowerThird, 0},
    {"font2", Field::Family, Of::LowerThird, 1},
    {"size1", Field::Size, Of::LowerThird, 0},
    {"size2", Field::Size, Of::LowerThird, 1},
    {"color1", Field::Color, Of::LowerThird, 0},
    {"color2", Field::Color, Of::LowerThird, 1},
};

// What is read of a shape.
constexpr std::string_view kShapeParameters[] = {
    "center", "size", "a", "col", "fontcolor", "textcolor", "linecolor", "linewidth",
};

// The values at which parameters that are not read change nothing, separated by blanks.
struct NeutralParameter {
    std::string_view id;
    std::string_view values = {}; // empty: any
};
constexpr std::string_view kOn = "TRUE"; // of a switch
constexpr NeutralParameter kNeutralParameters[] = {
    {"aspect", "1"},    {"fonttrack", "0 1"},
    {"track", "0 1"},   {"leading", "0"},
    {"lead", "0"},      {"autokern", kOn},
    {"subpixel"},       {"textopacity", "100"},
    {"linesoft", "0"},  {"soft", "0"},
    {"feather", "0"},   {"xscale", "0"}, // of a background, which has no size then
    {"yscale", "0"},    {"xoffset"},
    {"yoffset"},        {"backcolor"},
    {"backopacity"},    {"backsoft"},
    {"crop", "0"},      {"opacity", "100"},
    {"direction", "1"}, // upwards or to the left, as titles of a project move
};

// No title has more; sums and products of such numbers are finite.
constexpr double kLargest = 1e6;

// `Row` has an `id`.
template <typename Row, std::size_t count>
const Row* FindRow(const Row (&rows)[count], std::string_view id)
{
    const Row* const found = std::ranges::find(rows, id, &Row::id);
    return found == std::end(rows) ? nullptr : found;
}

ConstHandle EffectOf(ConstHandle generator)
{
    return generator.GetChild("effect");
}

const TitleEffect* TitleEffectOf(ConstHandle generator)
{
    return FindRow(kTitleEffects, EffectOf(generator).GetProperty("effectid"));
}

const ShapeEffect* ShapeEffectOf(ConstHandle generator)
{
    return FindRow(kShapeEffects, EffectOf(generator).GetProperty("effectid"));
}

std::vector<std::string_view> SplitLines(std::string_view text)
{
    constexpr std::string_view kLineEnd = "&#13;";
    std::vector<std::string_view> lines;
    std::size_t end = text.find(kLineEnd);
    while (end != text.npos) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + kLineEnd.size());
        end = text.find(kLineEnd);
    }
    lines.push_back(text);
    return lines;
}

// Blanks of a title are intended, also those at its ends.
std::string_view TextOf(ConstHandle parameter)
{
    if (const std::string_view text = RawValue(parameter); !text.empty())
        return text;
    return RawValue(parameter.GetChild("keyframe"));
}

// A size of 0 or less shows nothing and counts as missing.
int ReadSize(ConstHandle parameter, int missing)
{
    const int size = ParseInt(StaticValue(parameter, ""));
    return size > 0 ? size : missing;
}

double ReadPositive(ConstHandle parameter, double missing)
{
    const double value = ParseDouble(StaticValue(parameter, ""));
    return value > 0 ? std::min(value, kLargest) : missing;
}

double ReadLineWidth(ConstHandle parameter, double missing)
{
    const std::string_view text = StaticValue(parameter, "");
    return text.empty() ? missing : std::clamp(ParseDouble(text), 0.0, kLargest);
}

// 1 is italic, 2 bold, 3 both.
FontStyle TitleStyle(int number, FontStyle missing)
{
    return number >= 0 && number < 4 ? static_cast<FontStyle>(number) : missing;
}

// Documents of this system state that number beside the one by which others count.
FontStyle ReadStyle(ConstHandle parameter, FontStyle missing)
{
    const std::string_view own = parameter.GetProperty("velaStyle");
    const std::string_view text = own.empty() ? StaticValue(parameter, "") : own;
    return text.empty() ? missing : TitleStyle(ParseInt(text), missing);
}

// 1 is left, 2 centered, 3 right.
Alignment ReadAlignment(ConstHandle parameter, Alignment missing)
{
    const int number = ParseInt(StaticValue(parameter, ""));
    return number >= 1 && number <= 3 ? static_cast<Alignment>(number - 1) : missing;
}

// The parameter itself, or the keyframe that replaces it, which has the child `value`.
ConstHandle ValueHolder(ConstHandle parameter)
{
    return parameter.HasChild("value") ? parameter : parameter.GetChild("keyframe");
}

Color ReadColor(ConstHandle parameter, const Color& missing)
{
    const ConstHandle holder = ValueHolder(parameter);
    const ConstHandle value = holder.GetChild("value");
    if (!HasValue(value, "red") && !HasValue(value, "green") && !HasValue(value, "blue"))
        return missing;
    Color color = ColorValue(holder);
    if (!HasValue(value, "alpha"))
        color.alpha = missing.alpha;
    return color;
}

bool ReadPoint(ConstHandle parameter, Point& point)
{
    const ConstHandle holder = ValueHolder(parameter);
    const ConstHandle value = holder.GetChild("value");
    if (!HasValue(value, "horiz") && !HasValue(value, "vert"))
        return false;
    point = PointValue(holder);
    for (double* const coordinate : {&point.horiz, &point.vert})
        *coordinate = std::clamp(*coordinate, -kLargest, kLargest);
    return true;
}

bool Applies(const TitleParameter& row, TextKind kind)
{
    switch (row.of) {
    case Of::Every:
        return true;
    case Of::Outlined:
        return kind == TextKind::Outlined;
    case Of::LowerThird:
        return kind == TextKind::LowerThird;
    }
    return false;
}

// Takes a title's parameters in turn; of a doubled one the last that has a value counts.
class TitleReader {
public:
    TitleReader(Title& title, TextKind kind) : title_(title), kind_(kind)
    {
        title_.texts.resize(2);
        for (TitleText& text : title_.texts)
            text.lines = {{}};
    }

    void Take(ConstHandle parameter)
    {
        const TitleParameter* const row =
            FindRow(kTitleParameters, parameter.GetProperty("parameterid"));
        if (row && Applies(*row, kind_))
            Take(row->field, parameter, title_.texts[row->text]);
    }

    void Finish()
    {
        TitleText& second = title_.texts.back();
        second.font.style = title_.texts.front().font.style;
        second.font.alignment = title_.texts.front().font.alignment;
        if (second.lines.size() == 1 && second.lines.front().empty())
            title_.texts.pop_back();
    }

private:
    void Take(Field field, ConstHandle parameter, TitleText& text)
    {
        TitleFont& font = text.font;
        switch (field) {
        case Field::Family:
            font.family = StaticValue(parameter, font.family);
            break;
        case Field::Size:
            font.size = ReadSize(parameter, font.size);
            break;
        case Field::Style:
            font.style = ReadStyle(parameter, font.style);
            break;
        case Field::Alignment:
            font.alignment = ReadAlignment(parameter, font.alignment);
            break;
        case Field::Color:
            font.color = ReadColor(parameter, font.color);
            break;
        case Field::Text:
            if (const std::string_view value = TextOf(parameter); !value.empty())
                text.lines = SplitLines(value);
            break;
        case Field::Origin:
            hasOrigin_ |= ReadPoint(parameter, title_.position);
            break;
        case Field::Center:
            if (!hasOrigin_)
                ReadPoint(parameter, title_.position);
            break;
        case Field::LineColor:
            title_.lineColor = ReadColor(parameter, title_.lineColor);
            break;
        case Field::LineWidth:
            title_.lineWidth = ReadLineWidth(parameter, title_.lineWidth);
            break;
        }
    }

    Title& title_;
    TextKind kind_;
    bool hasOrigin_ = false;
};

// ---- What is lost

void RemarkOnFonts(const EffectContext& context, ConstHandle generator, bool isGraphic)
{
    for (const TitleText& text : ReadTitle(generator, {}).texts)
        if (!IsKnownFont(text.font.family, isGraphic))
            context.AddRemark(RemarkKind::TitleFont, EffectOf(generator), text.font.family);
}

// A title document has no outline, and states a lower third by its two texts.
bool IsKindKept(TextKind kind, ConstHandle generator)
{
    return kind == TextKind::Plain ||
           (kind == TextKind::LowerThird && ReadTitle(generator, {}).texts.size() > 1);
}

bool IsReadOf(ConstHandle generator, std::string_view id)
{
    if (IsShape(generator))
        return std::ranges::find(kShapeParameters, id) != std::end(kShapeParameters);
    return FindRow(kTitleParameters, id) != nullptr;
}

// A switch that states nothing is on.
bool IsOn(std::string_view value)
{
    return value.empty() || EqualsIgnoreCase(value, kOn) || value == "1";
}

bool IsNeutralParameter(ConstHandle parameter)
{
    const NeutralParameter* const row =
        FindRow(kNeutralParameters, parameter.GetProperty("parameterid"));
    if (!row)
        return false;
    if (row->values == kOn)
        return IsOn(PlainValue(parameter));
    const ParamRow neutral = XmemlOnly({.neutral = row->values});
    return row->values.empty() || IsHarmless(&neutral, parameter);
}

// The color of a title document is opaque; the fill of a graphic is that, or not there.
bool IsAlphaLost(ConstHandle parameter, bool isGraphic)
{
    const ConstHandle value = ValueHolder(parameter).GetChild("value");
    if (!HasValue(value, "alpha"))
        return false;
    const int alpha = IntProperty(value, "alpha");
    const bool isFill = parameter.GetProperty("parameterid") != "linecolor";
    return alpha < 255 && !(isGraphic && isFill && alpha <= 0);
}

bool IsColorChanged(ConstHandle parameter, bool isGraphic)
{
    return IsAlphaLost(parameter, isGraphic) || !AreBytes(ColorValue(ValueHolder(parameter)));
}

bool IsAnimated(ConstHandle parameter)
{
    int keyframes = 0;
    for ([[maybe_unused]] const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        ++keyframes;
    return keyframes > 1;
}

} // namespace

std::vector<GeneratorListing> ListGenerators()
{
    std::vector<GeneratorListing> list;
    for (const TitleEffect& row : kTitleEffects)
        list.push_back({row.id, row.note, kTitleParts});
    for (const ShapeEffect& row : kShapeEffects)
        list.push_back({row.id, "becomes a graphic; soft edges are lost", kShapeParts});
    return list;
}

bool IsTextTitle(ConstHandle generator)
{
    return TitleEffectOf(generator) != nullptr;
}

bool IsTextOrFont(std::string_view parameterId)
{
    const TitleParameter* const row = FindRow(kTitleParameters, parameterId);
    return row &&
           (row->field <= Field::Style || row->field == Field::Color || row->field == Field::Text);
}

bool IsShape(ConstHandle generator)
{
    return ShapeEffectOf(generator) != nullptr;
}

std::int64_t Title::TextHeight(const TitleFont& font) const
{
    return static_cast<std::int64_t>(font.size * Scale());
}

Title ReadTitle(ConstHandle generator, const FrameSize& frame)
{
    Title title;
    title.name = generator.GetProperty("name");
    title.frame = frame;
    const TitleEffect* const effect = TitleEffectOf(generator);
    const TextKind kind = effect ? effect->kind : TextKind::Plain;
    title.motion = effect ? effect->motion : TitleMotion::Still;
    title.isOutlined = kind == TextKind::Outlined;
    TitleReader reader(title, kind);
    for (const ConstHandle parameter : EffectOf(generator).GetChildren("parameter"))
        reader.Take(parameter);
    reader.Finish();
    return title;
}

void RemarkOnTitle(const EffectContext& context, ConstHandle generator, bool isGraphic)
{
    const ConstHandle effect = EffectOf(generator);
    const TitleEffect* const title = TitleEffectOf(generator);
    if (title && isGraphic && title->motion != TitleMotion::Still)
        context.AddRemark(RemarkKind::TitleStands, effect);
    if (title && !isGraphic && !IsKindKept(title->kind, generator))
        context.AddRemark(RemarkKind::TitleKind, effect);
    if (title)
        RemarkOnFonts(context, generator, isGraphic);
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        const std::string_view id = parameter.GetProperty("parameterid");
        const bool isOutline = title && title->kind == TextKind::Outlined && !isGraphic &&
                               id == "linewidth" && ReadLineWidth(parameter, 0) > 0;
        if (isOutline || (!IsReadOf(generator, id) && !IsNeutralParameter(parameter)))
            RemarkOnLostParameter(context, effect, parameter);
        else if (IsReadOf(generator, id) && IsAnimated(parameter))
            context.AddRemark(RemarkKind::KeyframesLost, effect, ParameterName(parameter));
        else if (IsReadOf(generator, id) && IsColorChanged(parameter, isGraphic))
            context.AddRemark(RemarkKind::ValueLimited, effect, ParameterName(parameter));
    }
}

Shape ReadShape(ConstHandle generator, const FrameSize& frame)
{
    Shape shape;
    shape.name = generator.GetProperty("name");
    shape.frame = frame;
    const ShapeEffect* const effect = ShapeEffectOf(generator);
    if (effect)
        shape.kind = effect->kind;
    for (const ConstHandle parameter : EffectOf(generator).GetChildren("parameter")) {
        const std::string_view id = parameter.GetProperty("parameterid");
        if (id == "center")
            ReadPoint(parameter, shape.center);
        else if (id == "size")
            shape.size = ReadPositive(parameter, shape.size);
        else if (id == "a" && effect && effect->hasAspect)
            shape.aspect = ReadPositive(parameter, shape.aspect);
        else if (id == "col" || id == "fontcolor" || id == "textcolor")
            shape.color = ReadColor(parameter, shape.color);
        else if (id == "linecolor")
            shape.lineColor = ReadColor(parameter, shape.lineColor);
        else if (id == "linewidth")
            shape.lineWidth = ReadLineWidth(parameter, shape.lineWidth);
    }
    return shape;
}

} // namespace XPJ

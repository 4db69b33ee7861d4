#include "effects/graphic_title.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "text/shape_path.h"
#include "text/shape_style.h"
#include "text/text_document.h"

namespace XPJ {

namespace {

// The parameters behind the blobs, in the order of their ids.
constexpr struct TransformRow {
    std::string_view name;
    std::string_view control;
    std::string_view lower;
    std::string_view upper;
    std::string_view value; // empty: the position
} kTransform[] = {
    {"Transform", "11", "false", "false", "false"}, // opens a group
    {"Position", "6", "", "", ""},
    {"Scale", "2", "0.", "4000", "100.0"},
    {"Horizontal Scale", "2", "0.", "4000", "100.0"},
    {" ", "4", "false", "true", "true"}, // uniform scale
    {"Rotation", "2", "-32768", "32768", "0."},
    {"Opacity", "2", "0.", "100.", "100.0"},
    {"Anchor Point", "6", "", "", "0.5:0.5"},
    {"", "12", "false", "false", "false"}, // closes the group
};

constexpr std::string_view kPointControl = "6";

void AddBlob(Document& document, ObjectHandle effect, std::string_view id, std::string_view name,
             std::string_view bytes)
{
    const ObjectHandle parameter =
        AddParameter(document, effect, {.id = id, .name = name, .value = EncodeBase64(bytes)});
    parameter.SetPropertyShared("hash", "invalid"); // the project states its own
    parameter.SetPropertyShared("ParameterControlType", "9");
}

// The position of a generator counts from the centre of the frame.
void AddTransform(Document& document, ObjectHandle effect, int firstId, const Point& position)
{
    const std::string place = PointText({position.horiz + 0.5, position.vert + 0.5});
    int id = firstId;
    for (const TransformRow& row : kTransform) {
        const std::string_view value = row.value.empty() ? place : row.value;
        const ObjectHandle parameter =
            AddParameter(document, effect,
                         {.id = IntToString(id++),
                          .name = row.name,
                          .value = row.control == kPointControl ? PointStartKeyframeText(value)
                                                                : StartKeyframeText(value)});
        parameter.SetPropertyShared("IsTimeVarying", "false");
        parameter.SetPropertyShared("ParameterControlType", row.control);
        if (row.lower.empty())
            continue;
        parameter.SetPropertyShared("LowerBound", row.lower);
        parameter.SetPropertyShared("UpperBound", row.upper);
    }
}

ObjectHandle MakeEffect(Document& document, std::string_view name, std::string_view id)
{
    const ObjectHandle effect = document.NewObject("effect");
    effect.SetProperty("name", name);
    effect.SetPropertyShared("effectid", id);
    effect.SetPropertyShared("effectcategory", "graphic");
    effect.SetPropertyShared("effecttype", "filter");
    return effect;
}

std::uint32_t PackedColor(const Colour& color)
{
    return static_cast<std::uint32_t>(color.blue << 16 | color.green << 8 | color.red);
}

GVE::Alignment AlignmentOf(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Left:
        break;
    case Alignment::Center:
        return GVE::kCenterAlign;
    case Alignment::Right:
        return GVE::kRightAlign;
    }
    return GVE::kLeftAlign;
}

void SetFont(const Title& title, const TitleFont& font, int run, GVE::Document& document)
{
    document.SetFontName(PostScriptName(font.family, font.style), run);
    document.SetFontSize(static_cast<double>(title.TextHeight(font)), run);
    document.SetFillColor(PackedColor(font.color), run);
    document.SetFillVisible(font.color.alpha > 0, run);
}

std::string JoinLines(const std::vector<std::string_view>& lines)
{
    std::string text;
    for (const std::string_view& line : lines) {
        if (&line != &lines.front())
            text += '\r';
        text += UnescapeXML(line);
    }
    return text;
}

} // namespace

std::string TextBlob(const Title& title)
{
    const TitleText& first = title.texts.front();
    GVE::Document document;
    SetFont(title, first.font, GVE::Document::kDefaultRun, document);
    document.SetAlignment(AlignmentOf(first.font.alignment));
    document.SetStrokeColor(PackedColor(title.lineColor));
    document.SetStrokeVisible(title.isOutlined && title.lineWidth > 0);
    document.SetStrokeWidth(title.lineWidth * title.Scale());
    for (const TitleText& text : title.texts) {
        const bool isLast = &text == &title.texts.back();
        const int run = document.AddRun(JoinLines(text.lines) + (isLast ? "" : "\r"));
        SetFont(title, text.font, run, document);
    }
    return document.serialize();
}

std::string PathBlob(const Shape& shape)
{
    const double height = shape.size / 100 * shape.frame.height;
    const double width = height * shape.aspect;
    const bool isRound = shape.kind == ShapeKind::Circle || shape.kind == ShapeKind::Oval;
    return (isRound ? GVE::ShapePath::Ellipse(width, height)
                    : GVE::ShapePath::Rectangle(width, height))
        .serialize();
}

std::string AppearanceBlob(const Shape& shape)
{
    GVE::ShapeStyle style;
    style.fillColor = {PackedColor(shape.color)};
    style.fillVisible = shape.color.alpha > 0;
    style.strokeColor = {PackedColor(shape.lineColor)};
    style.strokeVisible = shape.lineWidth > 0;
    style.strokeWidth = shape.lineWidth * shape.frame.height / 480;
    return style.serialize();
}

ObjectHandle MakeGraphicEffect(Document& document, ObjectHandle generator, const FrameSize& frame)
{
    if (IsShape(generator)) {
        const Shape shape = ReadShape(generator, frame);
        const ObjectHandle effect = MakeEffect(document, "Shape", "GraphicAndShape");
        AddBlob(document, effect, "1", "Path", PathBlob(shape));
        AddBlob(document, effect, "2", "Appearance", AppearanceBlob(shape));
        AddTransform(document, effect, 3, shape.center);
        return effect;
    }
    const Title title = ReadTitle(generator, frame);
    // A generator without a name goes by that of its effect.
    const std::string_view name =
        title.name.empty() ? EffectName(generator.GetChild("effect")) : title.name;
    const ObjectHandle effect = MakeEffect(document, name, "GraphicAndType");
    AddBlob(document, effect, "1", "SourceText", TextBlob(title));
    AddTransform(document, effect, 2, title.position);
    return effect;
}

} // namespace XPJ

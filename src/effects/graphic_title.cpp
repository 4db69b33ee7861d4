#include "effects/graphic_title.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/graphic_effects.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"
#include "text/shape_path.h"
#include "text/shape_style.h"
#include "text/text_document.h"

namespace XPJ {

namespace {

void AddBlob(Document& document, ObjectHandle effect, std::string_view id, std::string_view name,
             std::string_view bytes)
{
    const ObjectHandle parameter =
        AddParameter(document, effect, {.id = id, .name = name, .value = EncodeBase64(bytes)});
    parameter.SetPropertyShared("hash", "invalid"); // the project states its own
    parameter.SetPropertyShared("ParameterControlType", "9");
}

// The parameters behind the blobs. The position of a generator counts from the center of the frame.
void AddTransform(Document& document, ObjectHandle effect, int blobs, const Point& position)
{
    const std::string center =
        PointText({position.horiz + kFrameCenter.horiz, position.vert + kFrameCenter.vert});
    for (const ParamRow& row : kGraphicTransform) {
        const std::string_view value = row.value.empty() ? center : row.value;
        const ObjectHandle parameter =
            AddParameter(document, effect,
                         {.id = IntToString(blobs + row.id),
                          .name = row.name,
                          .value = row.kind == ParamKind::Point ? PointStartKeyframeText(value)
                                                                : StartKeyframeText(value)});
        parameter.SetPropertyShared("IsTimeVarying", "false");
        parameter.SetPropertyShared("ParameterControlType", ControlOf(row.kind));
        if (row.lower.empty())
            continue;
        parameter.SetPropertyShared("LowerBound", row.lower);
        parameter.SetPropertyShared("UpperBound", row.upper);
    }
}

ObjectHandle MakeEffect(Document& document, std::string_view name, const XmemlEffect& head)
{
    const ObjectHandle effect = document.NewObject("effect");
    effect.SetProperty("name", name);
    effect.SetPropertyShared("effectid", head.id);
    effect.SetPropertyShared("effectcategory", head.category);
    effect.SetPropertyShared("effecttype", head.type);
    return effect;
}

// What a channel has beyond its byte goes into the next.
std::uint32_t BlueGreenRed(const Color& color)
{
    return static_cast<std::uint32_t>(color.blue) << 16 |
           static_cast<std::uint32_t>(color.green) << 8 | static_cast<std::uint32_t>(color.red);
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
    document.SetFillColor(BlueGreenRed(font.color), run);
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
    document.SetStrokeColor(BlueGreenRed(title.lineColor));
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
    style.fillColor = {BlueGreenRed(shape.color)};
    style.fillVisible = shape.color.alpha > 0;
    style.strokeColor = {BlueGreenRed(shape.lineColor)};
    style.strokeVisible = shape.lineWidth > 0;
    style.strokeWidth = shape.lineWidth * shape.frame.height / 480;
    return style.serialize();
}

ObjectHandle MakeGraphicEffect(Document& document, ConstHandle generator, const FrameSize& frame)
{
    if (IsShape(generator)) {
        const Shape shape = ReadShape(generator, frame);
        const ObjectHandle effect =
            MakeEffect(document, kGraphicShape.xmeml.name, kGraphicShape.xmeml);
        AddBlob(document, effect, "1", "Path", PathBlob(shape));
        AddBlob(document, effect, "2", "Appearance", AppearanceBlob(shape));
        AddTransform(document, effect, kShapeBlobs, shape.center);
        return effect;
    }
    const Title title = ReadTitle(generator, frame);
    // A generator without a name goes by that of its effect.
    const std::string_view name =
        title.name.empty() ? EffectName(generator.GetChild("effect")) : title.name;
    const ObjectHandle effect = MakeEffect(document, name, kGraphicText.xmeml);
    AddBlob(document, effect, "1", "SourceText", TextBlob(title));
    AddTransform(document, effect, kTextBlobs, title.position);
    return effect;
}

} // namespace XPJ

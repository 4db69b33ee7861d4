// One text becomes a Text, or a Scrolling Text or Crawl if it moves; two that stand still become a
// Lower 3rd. More looks than a generator has are lost: all lines then have the first one.
//
// Sizes of a generator count in lines of a frame of 480, those of a title in lines of its own:
//
//   Lower 3rd, size1 30 in 1080 lines  ->  title of 67 lines  ->  size1 30
#include "effects/title_writer.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/effect_elements.h"
#include "effects/graphic_effects.h"
#include "effects/parameters.h"
#include "project/accessors.h"
#include "text/text_document.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr XmemlEffect kMotionEffects[] = {
    // by TitleMotion
    {.id = "Text", .name = "Text", .category = "Text", .type = "generator"},
    {.id = "Scrolling Text", .name = "Scrolling Text", .category = "Text", .type = "generator"},
    {.id = "Crawl", .name = "Crawl", .category = "Text", .type = "generator"},
};
constexpr XmemlEffect kLowerThird = {
    .id = "Lower 3rd", .name = "Lower 3rd", .category = "Text", .type = "generator"};

// A parameter, as readers look it up and as people see it.
struct ParameterRow {
    std::string_view id;
    std::string_view name;
};

struct TextRows {
    ParameterRow text;
    ParameterRow family;
    ParameterRow size;
    ParameterRow color;
};

constexpr TextRows kTextRows = {
    {"str", "Text"}, {"fontname", "Font"}, {"fontsize", "Size"}, {"fontcolor", "Font Color"}};
constexpr TextRows kLowerThirdRows[] = {
    {{"str1", "Text 1"}, {"font1", "Font 1"}, {"size1", "Size 1"}, {"color1", "Color 1"}},
    {{"str2", "Text 2"}, {"font2", "Font 2"}, {"size2", "Size 2"}, {"color2", "Color 2"}},
};

bool IsLowerThird(const LegacyTitle& title)
{
    return title.texts.size() == 2 && title.motion == TitleMotion::Still;
}

std::string JoinedLines(const LegacyTitleText& text)
{
    std::string joined;
    for (const std::string& line : text.lines) {
        if (&line != &text.lines.front())
            joined += "&#13;";
        joined += EscapeXML(line);
    }
    return joined;
}

double ScaleOf(const FrameSize& frame)
{
    return frame.height > 0 ? frame.height / 480.0 : 1.0;
}

// The size of which the title's height was made; a height is truncated.
std::int64_t SizeOf(int height, const FrameSize& frame)
{
    constexpr int kLargest = 1'000'000;
    const double scale = ScaleOf(frame);
    const int wanted = std::clamp(height, 1, kLargest);
    auto size = std::max<std::int64_t>(static_cast<std::int64_t>(wanted / scale), 1);
    while (static_cast<std::int64_t>(static_cast<double>(size) * scale) < wanted)
        ++size;
    return size;
}

// The shortest number that gives the title's coordinate again when a title document is made of it.
std::string CoordinateText(double value, double scale)
{
    const std::string scaled = NumberText(value * scale);
    if (scaled == "0")
        return "0";
    std::string text;
    for (int digits = 1; digits <= std::numeric_limits<double>::max_digits10; ++digits) {
        text = fmt::format("{:.{}g}", value, digits);
        if (NumberText(ParseDouble(text) * scale) == scaled)
            break;
    }
    return text;
}

void Add(Document& document, ObjectHandle effect, const ParameterRow& row, std::string_view value)
{
    AddParameter(document, effect, {.id = row.id, .name = row.name, .value = value});
}

void AddText(Document& document, ObjectHandle effect, const TextRows& rows,
             const LegacyTitleText& text, const FrameSize& frame)
{
    Add(document, effect, rows.text, JoinedLines(text));
    Add(document, effect, rows.family, EscapeXML(text.family));
    Add(document, effect, rows.size, IntToString(SizeOf(text.height, frame)));
    const ObjectHandle color =
        AddParameter(document, effect, {.id = rows.color.id, .name = rows.color.name});
    AddColorValue(document, color, text.color);
}

LegacyTitleText AllLinesInOneLook(const LegacyTitle& title)
{
    LegacyTitleText all = title.texts.front();
    for (std::size_t i = 1; i < title.texts.size(); ++i)
        all.lines.insert(all.lines.end(), title.texts[i].lines.begin(), title.texts[i].lines.end());
    return all;
}

// ---- Graphics

// The first text effect of a chain.
ConstHandle TextComponentOf(ConstHandle chain)
{
    for (const ConstHandle component : ComponentsOf(chain))
        if (ComponentMatchName(component) == kGraphicText.project.match)
            return component;
    return {};
}

ConstHandle ParamOf(ConstHandle component, std::string_view id)
{
    for (const ConstHandle param : ParamsOf(component))
        if (param.GetProperty("ParameterID") == id)
            return param;
    return {};
}

Alignment AlignmentOf(int alignment)
{
    if (alignment == GVE::kCenterAlign)
        return Alignment::Center;
    return alignment == GVE::kRightAlign ? Alignment::Right : Alignment::Left;
}

int ChannelOf(std::uint32_t color, unsigned shift)
{
    return static_cast<int>(color >> shift & 255);
}

LegacyTitleText TextOfRun(const GVE::TextRun& run, const GVE::Document& document)
{
    const TitleFace face = FaceOfPostScriptName(run.style.fontName);
    const std::uint32_t color = GVE::FillColor(run.style).value;
    LegacyTitleText text{
        .lines = {},
        .family = std::string(face.family),
        .style = {},
        .height = static_cast<int>(std::clamp(run.style.fontSize, 1.0, 1e6)),
        .color = {ChannelOf(color, 0), ChannelOf(color, 8), ChannelOf(color, 16), 255},
        .face = face.style,
        .alignment = AlignmentOf(document.Parameters().alignment)};
    std::string_view rest = run.text;
    for (std::size_t end = rest.find('\r'); end != rest.npos; end = rest.find('\r')) {
        text.lines.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    if (!rest.empty() || text.lines.empty())
        text.lines.emplace_back(rest);
    return text;
}

} // namespace

LegacyTitle TitleInFrame(LegacyTitle title, const FrameSize& frame)
{
    if (frame.width <= 0 || frame.height <= 0)
        return title;
    title.position.horiz *= static_cast<double>(title.frame.width) / frame.width;
    title.position.vert *= static_cast<double>(title.frame.height) / frame.height;
    title.frame = frame;
    return title;
}

ObjectHandle MakeTitleEffect(Document& document, const LegacyTitle& title)
{
    const bool isLowerThird = IsLowerThird(title);
    const ObjectHandle effect = document.NewObject("effect");
    WriteEffectHead(isLowerThird ? kLowerThird
                                 : kMotionEffects[static_cast<std::size_t>(title.motion)],
                    effect);
    if (isLowerThird)
        for (std::size_t i = 0; i < title.texts.size(); ++i)
            AddText(document, effect, kLowerThirdRows[i], title.texts[i], title.frame);
    else
        AddText(document, effect, kTextRows, AllLinesInOneLook(title), title.frame);

    const LegacyTitleText& first = title.texts.front();
    Add(document, effect, {"fontstyle", "Style"},
        IntToString(static_cast<std::int64_t>(first.face)));
    Add(document, effect, {"fontalign", "Alignment"},
        IntToString(static_cast<std::int64_t>(first.alignment) + 1));
    const ObjectHandle value = document.NewObject("value");
    value.SetProperty("horiz", CoordinateText(title.position.horiz, 1));
    value.SetProperty("vert", CoordinateText(title.position.vert, ScaleOf(title.frame)));
    AddParameter(document, effect, {.id = "origin", .name = "Origin"}).AddChild(value);
    return effect;
}

bool IsStatedInFull(const LegacyTitle& title)
{
    if (title.texts.size() < 2)
        return true;
    const LegacyTitleText& first = title.texts.front();
    const LegacyTitleText& second = title.texts[1];
    return IsLowerThird(title) && first.face == second.face && first.alignment == second.alignment;
}

LegacyTitle ReadGraphicTitle(ConstHandle chain, const FrameSize& frame)
{
    LegacyTitle title;
    title.frame = frame;
    const ConstHandle component = TextComponentOf(chain);
    const std::string blob =
        DecodeBase64(ParamOf(component, "1").GetProperty("StartKeyframeValue"));
    if (blob.empty())
        return title;
    const GVE::Document document(blob);
    const GVE::TextParameters& parameters = document.Parameters();
    for (const GVE::TextRun& run : parameters.runs)
        title.texts.push_back(TextOfRun(run, document));
    if (title.texts.empty())
        title.texts.push_back(TextOfRun(parameters.defaultRun, document));
    // It counts from the corner of the frame.
    const Point position = StartPoint(ParamOf(component, "3"), kFrameCenter);
    title.position = {position.horiz - kFrameCenter.horiz, position.vert - kFrameCenter.vert};
    return title;
}

} // namespace XPJ

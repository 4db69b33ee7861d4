#include "import/outline_parts.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "text/shape_path.h"
#include "text/shape_style.h"
#include "text/text_document.h"

#include <fmt/format.h>

namespace XPJ {
namespace {

constexpr std::string_view kVideoKind = "228cda18-3625-4d2d-951e-348879e4ed93";
constexpr std::string_view kAudioKind = "80b8e3d5-6dca-4195-aefb-cb5f407ab009";

void VisitBelow(const ProjectText& project, const Element& bin, std::size_t depth,
                const ItemVisitor& visit)
{
    for (const Element* const item : project.List(bin, "Item")) {
        visit(*item, bin, depth);
        if (item->name == "BinProjectItem")
            VisitBelow(project, *item, depth + 1, visit);
    }
}

// Packed as blue, green, red; "off" behind one that is not drawn.
std::string Drawn(std::uint32_t color, bool visible)
{
    return fmt::format("#{:02x}{:02x}{:02x}{}", color & 0xff, color >> 8 & 0xff, color >> 16 & 0xff,
                       visible ? "" : " off");
}

std::string Lines(std::string text)
{
    for (char& c : text)
        c = c == '\r' ? '|' : c;
    return text;
}

std::string TextOfTitle(const std::string& blob)
{
    const GVE::Document document(blob);
    const GVE::TextParameters& parameters = document.Parameters();
    std::string text = fmt::format("<align {}", static_cast<int>(parameters.alignment));
    for (const GVE::TextRun& run : parameters.runs) {
        const GVE::StyleParam& style = run.style;
        text +=
            fmt::format(" '{}' {} {} fill {} stroke {:g} {}", Lines(run.text), style.fontName,
                        style.fontSize, Drawn(FillColor(style).value, style.fillVisible),
                        style.strokeWidth, Drawn(StrokeColor(style).value, style.strokeVisible));
    }
    return text + ">";
}

std::string OutlineOfShape(const std::string& blob)
{
    const GVE::ShapePath path = GVE::ShapePath::FromBlob(blob);
    std::string text = path.closed ? "<closed" : "<open";
    for (const GVE::PathPoint& point : path.points)
        text += fmt::format(" {:g},{:g}({:g},{:g} {:g},{:g})", point.x, point.y, point.inX,
                            point.inY, point.outX, point.outY);
    return text + ">";
}

std::string StyleOfShape(const std::string& blob)
{
    const GVE::ShapeStyle style = GVE::ShapeStyle::FromBlob(blob);
    return fmt::format("<fill {} stroke {:g} {}>", Drawn(style.fillColor.value, style.fillVisible),
                       style.strokeWidth, Drawn(style.strokeColor.value, style.strokeVisible));
}

} // namespace

std::int64_t Count(std::string_view text)
{
    return ParseInt64(text);
}

std::string Frames(std::int64_t ticks, std::int64_t frameTicks)
{
    const std::int64_t rest = frameTicks > 0 ? ticks % frameTicks : 0;
    const std::int64_t frames = frameTicks > 0 ? ticks / frameTicks : ticks;
    return rest == 0 ? fmt::format("{}", frames) : fmt::format("{}{:+}", frames, rest);
}

SequenceGroups GroupsOf(const ProjectText& project, const Element& sequence)
{
    const Element* groups[2] = {&sequence.Child(""), &sequence.Child("")};
    for (const Element& group : project.At(sequence, "TrackGroups").children)
        if (const std::string& kind = group.Child("First").text; kind == kVideoKind)
            groups[0] = &project.At(group, "Second");
        else if (kind == kAudioKind)
            groups[1] = &project.At(group, "Second");
    return {*groups[0], *groups[1], Count(project.Value(*groups[0], "FrameRate"))};
}

const Element& SequenceOfMaster(const ProjectText& project, const Element& master)
{
    return project.At(master, "Clip/Source/Sequence");
}

void VisitItems(const ProjectText& project, const ItemVisitor& visit)
{
    VisitBelow(project, project.At(project.Root(), "Project/RootProjectItem"), 0, visit);
}

std::string BlobText(std::string_view matchName, std::string_view name, std::string_view base64)
{
    const std::string blob = DecodeBase64(base64);
    if (matchName == "KX.ORRN Text")
        return TextOfTitle(blob);
    if (matchName == "KX.ORRN Shape")
        return name == "Path" ? OutlineOfShape(blob) : StyleOfShape(blob);
    return blob.empty() ? "nothing" : fmt::format("<{} bytes>", blob.size());
}

} // namespace XPJ

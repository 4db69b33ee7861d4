#include "inspect/titles.h"

#include "core/base64.h"
#include "core/text.h"
#include "effects/legacy_title_reader.h"
#include "effects/title_reader.h"
#include "inspect/title_font_names.h"
#include "project/accessors.h"
#include "project/media_kinds.h"
#include "text/text_document.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kTextParameter = "1";

std::string ColorText(const Color& color)
{
    return fmt::format("#{:02x}{:02x}{:02x}", std::clamp(color.red, 0, 255),
                       std::clamp(color.green, 0, 255), std::clamp(color.blue, 0, 255));
}

template <class Lines>
std::string Joined(const Lines& lines)
{
    std::string text;
    for (const auto& line : lines)
        text.append(line).append(1, '\n');
    if (!text.empty())
        text.pop_back();
    return text;
}

// A carriage return that a document held as a reference ends a line like any other.
std::string WithLineFeeds(std::string text)
{
    std::ranges::replace(text, '\r', '\n');
    return text;
}

// Lines of a text document end with a carriage return, also the last one of a run before others.
TitleText TextOfRun(const GVE::TextRun& run, bool isLast)
{
    TitleText text{.text = run.text, .font = run.style.fontName, .size = run.style.fontSize};
    if (!isLast && text.text.ends_with('\r'))
        text.text.pop_back();
    text.text = WithLineFeeds(std::move(text.text));
    const std::uint32_t color = GVE::FillColor(run.style).value;
    const auto channel = [color](unsigned shift) { return static_cast<int>(color >> shift & 255); };
    text.color = ColorText({channel(0), channel(8), channel(16), 255});
    return text;
}

void AddTextDocument(std::string_view base64, std::vector<TitleText>& texts)
{
    const std::string blob = DecodeBase64(base64);
    if (blob.empty())
        return;
    const GVE::Document document(blob);
    const std::vector<GVE::TextRun>& runs = document.Parameters().runs;
    if (runs.empty())
        texts.push_back(TextOfRun(document.Parameters().defaultRun, true));
    for (const GVE::TextRun& run : runs)
        texts.push_back(TextOfRun(run, &run == &runs.back()));
}

} // namespace

std::vector<TitleText> TextsOfGenerator(ConstHandle generator, const FrameSize& frame)
{
    if (!IsTextTitle(generator))
        return {};
    const Title title = ReadTitle(generator, frame);
    std::vector<TitleText> texts;
    for (const XPJ::TitleText& part : title.texts)
        texts.push_back({.text = WithLineFeeds(UnescapeXML(Joined(part.lines))),
                         .font = UnescapeXML(GeneratorFont(part.font.family, part.font.style)),
                         .size = static_cast<double>(title.TextHeight(part.font)),
                         .color = ColorText(part.font.color)});
    return texts;
}

std::vector<TitleText> TextsOfFilters(ConstHandle owner)
{
    std::vector<TitleText> texts;
    for (const ConstHandle& filter : owner.GetChildren("filter")) {
        const ConstHandle effect = filter.GetChild("effect");
        if (effect.GetProperty("effectid") == kTextEffect)
            AddTextDocument(RawValue(FindParameter(effect, kTextParameter)), texts);
    }
    return texts;
}

std::vector<TitleText> TextsOfChain(ConstHandle chain)
{
    std::vector<TitleText> texts;
    for (const ConstHandle component : ComponentsOf(chain)) {
        if (ComponentMatchName(component) != kTextComponent)
            continue;
        for (const ConstHandle param : ParamsOf(component))
            if (param.GetProperty("ParameterID") == kTextParameter)
                AddTextDocument(param.GetProperty("StartKeyframeValue"), texts);
    }
    return texts;
}

std::vector<TitleText> TextsOfMedia(Media media)
{
    std::vector<TitleText> texts;
    if (!media || MediaKindOf(media) != MediaKind::Title)
        return texts;
    for (const LegacyTitleText& part :
         ReadLegacyTitle(DecodeBase64(media.GetProperty("ImporterPrefs"))).texts)
        texts.push_back({.text = WithLineFeeds(Joined(part.lines)),
                         .font = TitleDocumentFont(part.family, part.style),
                         .size = static_cast<double>(part.height),
                         .color = ColorText(part.color)});
    return texts;
}

std::string PreviewOf(const TitleText& text)
{
    constexpr std::size_t kLongest = 200;
    const std::string_view start = TruncatedText(text.text, kLongest);
    std::string preview;
    for (const char c : start)
        preview += c == '\n' ? std::string(" / ") : std::string(1, c);
    return start.size() < text.text.size() ? preview + "..." : preview;
}

} // namespace XPJ::Inspection

// A title becomes a document of fixed layout. Each of its fonts has a text description, a style and
// a shader of its own, which the lines refer to by number; the second font's numbers follow on the
// first's. All lines are in one block.
#include "effects/legacy_title.h"

#include "core/text.h"
#include "effects/legacy_title_layout.h"

#include <iterator>

#include <fmt/format.h>

namespace XPJ {

namespace {

constexpr std::size_t kFirstFont = 4097; // number of its description and of its style
constexpr std::size_t kFirstColor = 268500994;
constexpr std::size_t kBackground = 4098; // number of its shader
constexpr std::size_t kColorTexture = 4097;

constexpr double kFirstBase = 142.293; // of the first line
constexpr double kLineDistance = 100;  // on 480 lines

constexpr std::string_view kAlignments[] = {"left", "center", "right"};

struct ChainDefaults {
    std::string_view tag;
    bool wordWrap;
    bool locked;
};

constexpr ChainDefaults kChains[] = {
    {"normal", true, false},
    {"boxNormal", true, true},
    {"blockNormal", false, true},
    {"spline", false, false},
};

struct Shader {
    std::size_t reference = 0;
    std::size_t texture = 0;
    int colorOption = 4;
    int glintSize = 10;
    int glint = 250;      // each channel
    Color color = {};     // alpha is not used
    int transparency = 0; // of the color
};

// Behind the shaders of the fonts.
std::size_t ShadowNumber(const Title& title)
{
    return kFirstColor + title.texts.size();
}

template <typename... Arguments>
void Append(std::string& text, std::string_view layout, const Arguments&... arguments)
{
    fmt::format_to(std::back_inserter(text), fmt::runtime(layout), arguments...);
}

std::string ChainDefaultsText()
{
    std::string text;
    for (const ChainDefaults& chain : kChains)
        Append(text, kChainDefaults, fmt::arg("tag", chain.tag),
               fmt::arg("wordWrap", chain.wordWrap), fmt::arg("locked", chain.locked));
    return text;
}

std::string TextDescriptions(const Title& title)
{
    std::string text;
    std::size_t reference = kFirstFont;
    for (const TitleText& part : title.texts) {
        const TitleFont& font = part.font;
        const LegacyFontRecord record = LegacyFont(font.family, font.style);
        // A bold italic face is neither: its name alone states it.
        Append(text, kTextDescription, fmt::arg("reference", reference++),
               fmt::arg("textSize", title.TextHeight(font)),
               fmt::arg("bold", font.style == FontStyle::Bold ? 1 : 0),
               fmt::arg("italic", font.style == FontStyle::Italic ? 1 : 0),
               fmt::arg("fullName", record.fullName), fmt::arg("family", record.family),
               fmt::arg("style", record.style), fmt::arg("type", record.type),
               fmt::arg("category", record.category));
    }
    return text;
}

// The face and the shadow of a style have a shader; the other painters have none.
std::string ShaderRefs(std::size_t face, std::size_t shadow)
{
    std::string text;
    const auto add = [&text](int painter, std::size_t shader) {
        Append(text, kShaderRef, fmt::arg("painter", painter), fmt::arg("shader", shader));
    };
    for (int painter = 2; painter < 15; ++painter)
        add(painter, 0);
    add(15, face);
    add(-1, shadow);
    for (int painter = 1000; painter < 1016; ++painter)
        add(painter, 0);
    return text;
}

std::string Styles(const Title& title)
{
    std::string text;
    for (std::size_t i = 0; i < title.texts.size(); ++i)
        Append(text, kStyle, fmt::arg("reference", kFirstFont + i),
               fmt::arg("shaderRefs", ShaderRefs(kFirstColor + i, ShadowNumber(title))));
    return text;
}

void AppendShader(std::string& text, const Shader& shader)
{
    Append(text, kShader, fmt::arg("reference", shader.reference),
           fmt::arg("texture", shader.texture), fmt::arg("colorOption", shader.colorOption),
           fmt::arg("glintSize", shader.glintSize), fmt::arg("red", shader.color.red),
           fmt::arg("green", shader.color.green), fmt::arg("blue", shader.color.blue),
           fmt::arg("transparency", shader.transparency), fmt::arg("glint", shader.glint));
}

std::string Shaders(const Title& title)
{
    std::string text;
    AppendShader(text, {.reference = kBackground});
    AppendShader(text, {.reference = ShadowNumber(title),
                        .colorOption = 0,
                        .glintSize = 0,
                        .glint = 0,
                        .transparency = 127});
    std::size_t reference = kFirstColor;
    for (const TitleText& part : title.texts)
        AppendShader(
            text, {.reference = reference++, .texture = kColorTexture, .color = part.font.color});
    return text;
}

std::size_t LineCount(const Title& title)
{
    std::size_t count = 0;
    for (const TitleText& part : title.texts)
        count += part.lines.size();
    return count;
}

// What a document that is not well-formed holds in its text would spoil this one.
std::string TextLines(const Title& title)
{
    const std::size_t last = LineCount(title);
    std::string text;
    std::size_t number = 0;
    std::size_t reference = kFirstFont;
    for (const TitleText& part : title.texts) {
        for (const std::string_view line : part.lines) {
            const std::string content = WellFormedText(line);
            const double above = static_cast<double>(number) * kLineDistance * title.Scale();
            ++number;
            Append(
                text, kTextLine, fmt::arg("line", number),
                fmt::arg("base", NumberText(kFirstBase + above)),
                fmt::arg("posX", NumberText(title.position.horiz)),
                fmt::arg("alignment", kAlignments[static_cast<std::size_t>(part.font.alignment)]),
                fmt::arg("marker", number < last ? " TXMarker=\"Booyah\"" : ""),
                fmt::arg("text", content), fmt::arg("count", ToUTF16(UnescapeXML(content)).size()),
                fmt::arg("reference", reference));
        }
        ++reference;
    }
    return text;
}

} // namespace

std::string LegacyTitleDocument(const Title& title)
{
    std::string text;
    Append(text, kTitleDocument, fmt::arg("moves", title.motion != TitleMotion::Still),
           fmt::arg("motion", static_cast<int>(title.motion)), fmt::arg("width", title.frame.width),
           fmt::arg("height", title.frame.height),
           fmt::arg("pixelAspect", NumberText(1 / title.frame.pixelAspect)),
           fmt::arg("chainDefaults", ChainDefaultsText()),
           fmt::arg("textDescriptions", TextDescriptions(title)), fmt::arg("styles", Styles(title)),
           fmt::arg("shaders", Shaders(title)), fmt::arg("posX", NumberText(title.position.horiz)),
           fmt::arg("posY", NumberText(title.position.vert * title.Scale())),
           fmt::arg("textLines", TextLines(title)));
    return text;
}

} // namespace XPJ

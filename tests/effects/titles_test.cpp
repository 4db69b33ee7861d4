#include "effects/title_fonts.h"
#include "effects/title_reader.h"

#include "effects/effect_text.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr FrameSize kSmallFrame = {720, 480, 1.0};

std::string Color(const std::string& id, const std::string& channels)
{
    return "<parameter><parameterid>" + id + "</parameterid><value>" + channels +
           "</value></parameter>";
}

// The `generatoritem` of an effect from the text of its parameters.
ObjectHandle Generator(Document& document, const std::string& effectId,
                       const std::string& parameters)
{
    const std::string text =
        "<xmeml version=\"5\"><sequence id=\"s\"><media><video><track><generatoritem id=\"g\">"
        "<name>Opening</name><effect><name>Any</name><effectid>" +
        effectId + "</effectid>" + parameters +
        "</effect></generatoritem></track></video></media></sequence></xmeml>";
    ObjectHandle root;
    EXPECT_EQ(ParseFCPXML(document.Store(text), document, root), kReadDone);
    return FindPath(root, {"sequence", "media", "video", "track", "generatoritem"});
}

Title TitleOf(Document& document, const std::string& parameters,
              const std::string& effectId = "Text")
{
    return ReadTitle(Generator(document, effectId, parameters), kSmallFrame);
}

TEST(TitleFonts, Faces)
{
    const struct {
        const char* family;
        FontStyle style;
        const char* postScript;
        const char* fullName;
        const char* legacyStyle;
        std::uint32_t category;
    } rows[] = {
        // Own forms, by style.
        {"Arial", FontStyle::Regular, "ArialMT", "ArialMT", "Regular", 536870912},
        {"Arial", FontStyle::Italic, "Arial-ItalicMT", "Arial-ItalicMT", "Italic", 536870912},
        {"Arial", FontStyle::Bold, "Arial-BoldMT", "Arial-BoldMT", "Bold", 536870912},
        {"Arial", FontStyle::BoldItalic, "Arial-BoldItalicMT", "Arial-BoldItalicMT", "BoldItalic",
         536870912},
        {"Courier", FontStyle::Italic, "Courier-Oblique", "Courier-Oblique", "Italic", 536870912},
        {"Skia", FontStyle::Bold, "Skia-Regular_Bold", "Skia-Regular_Bold", "Bold", 536870912},
        // Own forms whose first is a single face.
        {"American Typewriter", FontStyle::Bold, "AmericanTypewriter-Bold",
         "AmericanTypewriter-CondensedLight", "Condensed Light", 0},
        {"Futura", FontStyle::Italic, "Futura-MediumItalic", "Futura-CondensedMedium",
         "Condensed Medium", 0},
        // Suffixed.
        {"Baskerville", FontStyle::Bold, "Baskerville-Bold", "Baskerville", "Bold", 536870912},
        {"Lucida Grande", FontStyle::Regular, "LucidaGrande", "LucidaGrande", "Regular", 536870912},
        // One name.
        {"Optima", FontStyle::Bold, "Optima-Regular", "Optima-Regular", "Bold", 536870912},
        {"Hiragino Kaku Gothic Pro", FontStyle::Bold, "HiraKakuPro-W3", "HiraKakuPro-W3", "W3", 0},
        {"Apple LiGothic", FontStyle::Regular, "LiGothicMed", "LiGothicMed", "Medium", 0},
        {"#GungSeo", FontStyle::Regular, "JCkg", "JCkg", "Regular", 536870912},
        // Without a name for text documents.
        {"Apple Casual", FontStyle::Italic, "LucidaGrande", "AppleCasual", "Italic", 536870912},
        {"Andale Mono", FontStyle::Regular, "LucidaGrande", "AndaleMono", "Regular", 536870912},
        {"BlairMdITC TT", FontStyle::Bold, "LucidaGrande", "BlairMdITCTTMedium", "Medium", 0},
        {"Brush Script MT", FontStyle::Regular, "LucidaGrande", "BrushScriptMT", "Italic", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.family);
        const LegacyFontRecord legacy = LegacyFont(row.family, row.style);
        EXPECT_EQ(PostScriptName(row.family, row.style), row.postScript);
        EXPECT_EQ(legacy.family, row.family);
        EXPECT_EQ(legacy.fullName, row.fullName);
        EXPECT_EQ(legacy.style, row.legacyStyle);
        EXPECT_EQ(legacy.category, row.category);
        EXPECT_EQ(legacy.type, 5);
    }
}

TEST(TitleFonts, UnknownFamilies)
{
    for (const char* const family : {"", "Comic", "arial", "Arial "}) {
        EXPECT_EQ(PostScriptName(family, FontStyle::Bold), "LucidaGrande");
        EXPECT_EQ(LegacyFont(family, FontStyle::Bold).family, "Apple Casual");
        EXPECT_EQ(LegacyFont(family, FontStyle::Bold).fullName, "AppleCasual");
        EXPECT_EQ(LegacyFont(family, FontStyle::Bold).style, "Bold");
    }
}

TEST(TitleReader, Kinds)
{
    Document document;
    const struct {
        const char* effectId;
        bool isTitle;
        bool isShape;
        TitleMotion motion;
    } rows[] = {
        {"Text", true, false, TitleMotion::Still},
        {"Outline Text", true, false, TitleMotion::Still},
        {"Scrolling Text", true, false, TitleMotion::Scroll},
        {"Crawl", true, false, TitleMotion::Crawl},
        {"Lower 3rd", true, false, TitleMotion::Still},
        {"Rectangle", false, true, TitleMotion::Still},
        {"Square", false, true, TitleMotion::Still},
        {"Circle", false, true, TitleMotion::Still},
        {"Oval", false, true, TitleMotion::Still},
        {"text", false, false, TitleMotion::Still},
        {"Color", false, false, TitleMotion::Still},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.effectId);
        const ObjectHandle generator = Generator(document, row.effectId, "");
        EXPECT_EQ(IsTextTitle(generator), row.isTitle);
        EXPECT_EQ(IsShape(generator), row.isShape);
        EXPECT_EQ(ReadTitle(generator, kSmallFrame).motion, row.motion);
    }
    EXPECT_FALSE(IsTextTitle(ObjectHandle()) || IsShape(ObjectHandle()));
}

TEST(TitleReader, DefaultsStandInForWhatIsMissingOrUnusable)
{
    Document document;
    const std::string unusable =
        Parameter("fontname", " ") + Parameter("fontsize", "-3") + Parameter("size", "huge") +
        Parameter("fontstyle", "4") + Parameter("style", "-1") + Parameter("fontalign", "0") +
        Parameter("align", "4") + Color("fontcolor", "") + Parameter("textcolor", "7") +
        Parameter("origin", "3") + "<parameter><parameterid>str</parameterid></parameter>";
    for (const std::string& parameters : {std::string(), unusable}) {
        const Title title = TitleOf(document, parameters);
        EXPECT_EQ(title.name, "Opening");
        ASSERT_EQ(title.texts.size(), 1u);
        const TitleFont& font = title.texts[0].font;
        EXPECT_EQ(font.family, "Lucida Grande");
        EXPECT_EQ(font.size, 36);
        EXPECT_EQ(font.style, FontStyle::Regular);
        EXPECT_EQ(font.alignment, Alignment::Center);
        EXPECT_EQ(font.color, (Colour{255, 255, 255, 255}));
        EXPECT_EQ(title.texts[0].lines, std::vector<std::string_view>{""});
        EXPECT_EQ(title.position, (Point{0, 0}));
    }
}

TEST(TitleReader, BothSpellingsAndTheLastOfDoubledParameters)
{
    Document document;
    for (const std::string prefix : {"font", ""}) {
        const std::string family = prefix.empty() ? "font" : "fontname";
        const Title title = TitleOf(
            document, Parameter(family, "Arial") + Parameter(prefix + "size", "12") +
                          Parameter(prefix + "size", "48.7") + Parameter(prefix + "size", "x") +
                          Parameter(prefix + "style", "3") + Parameter(prefix + "align", "3") +
                          Color(prefix.empty() ? "textcolor" : "fontcolor",
                                "<red>300</red><green>-1</green><blue>7</blue>"));
        const TitleFont& font = title.texts[0].font;
        EXPECT_EQ(font.family, "Arial");
        EXPECT_EQ(font.size, 48);
        EXPECT_EQ(font.style, FontStyle::BoldItalic);
        EXPECT_EQ(font.alignment, Alignment::Right);
        EXPECT_EQ(font.color, (Colour{255, 0, 7, 255}));
    }
    EXPECT_EQ(
        TitleOf(document, Color("fontcolor", "<alpha>0</alpha><red>1</red>")).texts[0].font.color,
        (Colour{1, 0, 0, 0}));
}

TEST(TitleReader, LinesAndPosition)
{
    Document document;
    const Title title =
        TitleOf(document, Parameter("str", "&#13; Tom &amp; Co &#13;&#10;x&#13;") +
                              Parameter("center", "0.5:0.25") + Parameter("origin", "-0.1:1e999") +
                              Parameter("center", "9:9"));
    EXPECT_EQ(title.texts[0].lines,
              (std::vector<std::string_view>{"", " Tom &amp; Co ", "&#10;x", ""}));
    EXPECT_EQ(title.position, (Point{-0.1, 1e6}));
    EXPECT_EQ(TitleOf(document, Parameter("center", "0.5:0.25")).position, (Point{0.5, 0.25}));
}

TEST(TitleReader, LowerThirdsHaveASecondTextOnlyWithWords)
{
    Document document;
    const std::string parameters = Parameter("str1", "Ann&#13;Lee") +
                                   Parameter("font1", "Georgia") + Parameter("size1", "30") +
                                   Parameter("font2", "Arial") + Parameter("size2", "20") +
                                   Parameter("fontstyle", "2") + Parameter("fontalign", "1") +
                                   Color("color2", "<red>1</red><green>2</green><blue>3</blue>");
    const Title two = TitleOf(document, parameters + Parameter("str2", "Editor"), "Lower 3rd");
    ASSERT_EQ(two.texts.size(), 2u);
    EXPECT_EQ(two.texts[0].lines, (std::vector<std::string_view>{"Ann", "Lee"}));
    EXPECT_EQ(two.texts[0].font.family, "Georgia");
    EXPECT_EQ(two.texts[1].lines, std::vector<std::string_view>{"Editor"});
    EXPECT_EQ(two.texts[1].font.family, "Arial");
    EXPECT_EQ(two.texts[1].font.size, 20);
    EXPECT_EQ(two.texts[1].font.style, FontStyle::Bold);
    EXPECT_EQ(two.texts[1].font.alignment, Alignment::Left);
    EXPECT_EQ(two.texts[1].font.color, (Colour{1, 2, 3, 255}));
    EXPECT_EQ(TitleOf(document, parameters, "Lower 3rd").texts.size(), 1u);
    // Other titles don't know these parameters.
    EXPECT_EQ(TitleOf(document, parameters + Parameter("str2", "x")).texts[0].lines[0], "");
}

TEST(TitleReader, OutlinesBelongToOutlinedTitles)
{
    Document document;
    const std::string line =
        Parameter("linewidth", "2.5") +
        Color("linecolor", "<red>1</red><green>2</green><blue>3</blue><alpha>4</alpha>");
    const Title outlined = TitleOf(document, line, "Outline Text");
    EXPECT_TRUE(outlined.isOutlined);
    EXPECT_EQ(outlined.lineWidth, 2.5);
    EXPECT_EQ(outlined.lineColor, (Colour{1, 2, 3, 4}));
    EXPECT_EQ(TitleOf(document, line).lineWidth, 0);
    EXPECT_EQ(TitleOf(document, Parameter("linewidth", "-2"), "Outline Text").lineWidth, 0);
}

TEST(TitleReader, TextHeightFollowsTheFrame)
{
    Title title;
    const struct {
        int size;
        int height;
        int expected;
    } rows[] = {{48, 480, 48}, {48, 1080, 108}, {23, 486, 23}, {36, 576, 43}, {36, 0, 0}};
    for (const auto& row : rows) {
        title.frame.height = row.height;
        EXPECT_EQ(title.TextHeight({.size = row.size}), row.expected) << row.size;
    }
}

TEST(TitleReader, Shapes)
{
    Document document;
    const std::string parameters =
        Parameter("size", "25.5") + Parameter("a", "2") + Parameter("center", "0.1:-0.2") +
        Color("col", "<red>9</red><green>8</green><blue>7</blue>") + Parameter("linewidth", "3");
    const Shape oval = ReadShape(Generator(document, "Oval", parameters), kSmallFrame);
    EXPECT_EQ(oval.kind, ShapeKind::Oval);
    EXPECT_EQ(oval.size, 25.5);
    EXPECT_EQ(oval.aspect, 2);
    EXPECT_EQ(oval.center, (Point{0.1, -0.2}));
    EXPECT_EQ(oval.color, (Colour{9, 8, 7, 255}));
    EXPECT_EQ(oval.lineWidth, 3);
    EXPECT_EQ(ReadShape(Generator(document, "Circle", parameters), kSmallFrame).aspect, 1);
    const Shape plain =
        ReadShape(Generator(document, "Rectangle", Parameter("size", "0") + Parameter("a", "-1")),
                  kSmallFrame);
    EXPECT_EQ(plain.size, 50);
    EXPECT_EQ(plain.aspect, 1);
    EXPECT_EQ(plain.color, (Colour{255, 255, 255, 255}));
}

} // namespace
} // namespace XPJ

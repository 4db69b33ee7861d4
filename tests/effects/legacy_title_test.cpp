#include "effects/legacy_title.h"
#include "effects/legacy_title_layout.h"
#include "effects/legacy_title_reader.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace XPJ {
namespace {

Title TitleOfLines(std::initializer_list<std::string_view> lines)
{
    Title title;
    title.frame = {720, 480, 1.0};
    title.texts.push_back({.font = {}, .lines = lines});
    return title;
}

Title LowerThird()
{
    Title title = TitleOfLines({"Ann Lee"});
    title.texts.push_back(
        {.font = {.family = "Arial", .size = 20, .style = FontStyle::Bold, .color = {1, 2, 3, 255}},
         .lines = {"Editor"}});
    return title;
}

// What stands between the first `<tag ...>` from `start` on and its end.
std::string Element(const std::string& document, const std::string& tag, std::size_t start = 0)
{
    const std::size_t open = document.find("<" + tag, start);
    const std::size_t begin = document.find('>', open) + 1;
    return open == std::string::npos
               ? "(none)"
               : document.substr(begin, document.find("</" + tag, begin) - begin);
}

std::size_t CountOf(const std::string& document, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = document.find(text); at != std::string::npos;
         at = document.find(text, at + 1))
        ++count;
    return count;
}

TEST(LegacyTitle, LayoutsLoseTheBlanksBetweenElementsOnly)
{
    constexpr Layout kLayout(R"(
<a>
  <b x="1" y="2">{b}</b> <c>1 2 3 </c>
  {more} <d />
</a>
)");
    EXPECT_EQ(std::string_view(kLayout),
              R"(<a><b x="1" y="2">{b}</b><c>1 2 3 </c>{more}<d /></a>)");
}

TEST(LegacyTitle, OneLineThroughout)
{
    const std::string document = LegacyTitleDocument(TitleOfLines({"Hello"}));
    EXPECT_EQ(document.find('\n'), std::string::npos);
    EXPECT_EQ(document.find("> <"), std::string::npos);
    EXPECT_EQ(document.find_first_of("{}"), std::string::npos);
    EXPECT_TRUE(document.starts_with(R"(<?xml version="1.0" encoding="UTF-8" ?><Orrin_Root>)"));
    EXPECT_TRUE(document.ends_with("</Layout></InscriberLayouts></Orrin_Root>"));
}

TEST(LegacyTitle, Motion)
{
    const struct {
        TitleMotion motion;
        const char* moves;
        const char* effectType;
    } rows[] = {{TitleMotion::Still, "false", "0"},
                {TitleMotion::Scroll, "true", "1"},
                {TitleMotion::Crawl, "true", "2"}};
    for (const auto& row : rows) {
        Title title = TitleOfLines({"x"});
        title.motion = row.motion;
        const std::string document = LegacyTitleDocument(title);
        EXPECT_EQ(Element(document, "Start_on_Screen"), row.moves);
        EXPECT_EQ(Element(document, "End_off_Screen"), row.moves);
        EXPECT_EQ(Element(document, "EffectType"), row.effectType);
    }
}

TEST(LegacyTitle, FrameAndPlace)
{
    Title title = TitleOfLines({"a", "b"});
    title.frame = {1440, 1080, 4.0 / 3};
    title.position = {-0.25, 0.5};
    title.texts[0].font.size = 48;
    const std::string document = LegacyTitleDocument(title);
    EXPECT_EQ(Element(document, "pXPIXELS"), "1440");
    EXPECT_EQ(Element(document, "pYLINES"), "1080");
    EXPECT_EQ(Element(document, "pSCREENAR"), "0.75");
    EXPECT_EQ(Element(document, "txHeight"), "108");
    EXPECT_EQ(Element(document, "txWidth"), "108");
    EXPECT_EQ(Element(document, "Position"), "<x>-0.25</x><y>1.125</y>");
    EXPECT_EQ(Element(document, "txBase"), "142.293");
    EXPECT_EQ(Element(document, "txBase", document.rfind("<TextLine")), "367.293");
    EXPECT_EQ(Element(document, "XPos"), "-0.25");
}

TEST(LegacyTitle, Lines)
{
    Title title = TitleOfLines({"Tom &amp; Co", "&#x1F30A;\xF0\x9F\x8C\x8A", ""});
    title.texts[0].font.alignment = Alignment::Right;
    const std::string document = LegacyTitleDocument(title);
    EXPECT_EQ(CountOf(document, "<TextLine "), 3u);
    EXPECT_EQ(CountOf(document, "<Alignment>right</Alignment>"), 3u);
    EXPECT_NE(document.find(R"(<TRString TXMarker="Booyah">Tom &amp; Co</TRString>)"),
              std::string::npos);
    EXPECT_NE(document.find("<TRString></TRString>"), std::string::npos);
    // Characters of the decoded line, in units of UTF-16.
    EXPECT_EQ(CountOf(document, R"(RunCount="8" StyleRef="4097" TextRef="4097")"), 1u);
    EXPECT_EQ(CountOf(document, R"(RunCount="4" )"), 1u);
    EXPECT_EQ(CountOf(document, R"(RunCount="0" )"), 1u);
    EXPECT_NE(document.find(R"(objectID="3" persistentID="3")"), std::string::npos);
}

// The source may be no XML at all; the title is.
TEST(LegacyTitle, TextThatWouldSpoilTheDocumentIsEscaped)
{
    const std::string document =
        LegacyTitleDocument(TitleOfLines({"a < b & c \x01\xFF", "&nbsp;&#0;]]>"}));
    EXPECT_NE(document.find(">a &lt; b &amp; c \xEF\xBF\xBD</TRString>"), std::string::npos);
    EXPECT_NE(document.find(">&amp;nbsp;&amp;#0;]]&gt;</TRString>"), std::string::npos);
}

TEST(LegacyTitle, ASecondFontHasARecordAStyleAndAShaderOfItsOwn)
{
    const std::string one = LegacyTitleDocument(TitleOfLines({"x"}));
    EXPECT_EQ(CountOf(one, "<TextDescription "), 1u);
    EXPECT_EQ(CountOf(one, "<Style "), 1u);
    EXPECT_EQ(CountOf(one, "<Shader "), 3u);
    EXPECT_EQ(CountOf(one, "<shaderRef>268500995</shaderRef>"), 1u); // the shadow
    const std::string two = LegacyTitleDocument(LowerThird());
    EXPECT_EQ(CountOf(two, "<TextDescription "), 2u);
    EXPECT_EQ(CountOf(two, "<Style "), 2u);
    EXPECT_EQ(CountOf(two, "<Shader "), 4u);
    EXPECT_EQ(CountOf(two, "<shaderRef>268500995</shaderRef>"), 1u); // the second face
    EXPECT_EQ(CountOf(two, "<shaderRef>268500996</shaderRef>"), 2u); // the shadow of both
    EXPECT_EQ(CountOf(two, R"(RunCount="6" StyleRef="4098" TextRef="4098")"), 1u);
    const std::size_t second = two.find(R"(<TextDescription Reference="4098">)");
    EXPECT_EQ(Element(two, "txHeight", second), "20");
    EXPECT_EQ(Element(two, "fifullName", second), "Arial-BoldMT");
    EXPECT_EQ(Element(two, "fiBold", second), "1");
    EXPECT_EQ(Element(two, "fiItalic", second), "0");
    EXPECT_EQ(Element(two, "ficategory", second), "536870912");
    const std::size_t color = two.find("<cReference>268500995</cReference>");
    EXPECT_EQ(Element(two, "ColorSpec", color),
              "<red>1</red><green>2</green><blue>3</blue><xpar>0</xpar>");
}

TEST(LegacyTitle, ComesBackAsItsWordsAndLook)
{
    Title title = LowerThird();
    title.texts[0].lines = {"Ann &lt;Lee&gt;", ""};
    const std::vector<LegacyTitleText> texts = ReadLegacyTitle(LegacyTitleDocument(title));
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].lines, (std::vector<std::string>{"Ann <Lee>", ""}));
    EXPECT_EQ(texts[0].family, "Lucida Grande");
    EXPECT_EQ(texts[0].height, 36);
    EXPECT_EQ(texts[0].color, (Colour{255, 255, 255, 255}));
    EXPECT_EQ(texts[1].lines, std::vector<std::string>{"Editor"});
    EXPECT_EQ(texts[1].family, "Arial");
    EXPECT_EQ(texts[1].style, "Bold");
    EXPECT_EQ(texts[1].color, (Colour{1, 2, 3, 255}));
}

TEST(LegacyTitle, WhatIsNoTitleDocumentHasNoWords)
{
    for (const char* const text : {"", "CompressedTitle\x01\x02", "<TRString>a</TRString>",
                                   "<a><<b>", "<TextDescription><txHeight>9"})
        EXPECT_TRUE(ReadLegacyTitle(text).empty()) << text;
    // A title that ends too early keeps the words that it has.
    EXPECT_EQ(ReadLegacyTitle("<TextLine><TRString>a</TRString>").at(0).lines.at(0), "a");
}

} // namespace
} // namespace XPJ

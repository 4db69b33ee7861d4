#include "tree/tokeniser.h"

#include "tree/literal_tokeniser.h"

#include <gtest/gtest.h>

#include <random>

namespace XPJ {
namespace {

using namespace std::string_view_literals;

// Each row is a corner case of the state table.
constexpr std::string_view kInputs[] = {
    "",
    "text without a tag",
    "<a>100</a>",
    "<a>\n\t\t100\n\t</a>",
    "<a>1\n2\r\n3\t4</a>",
    "<a>  </a>",
    "\xef\xbb\xbf<?xml version=\"1.0\"?><a/>",
    "__Sn2Vl__\n<a>x</a>",
    "<!DOCTYPE a><a>x</a>",
    "<!DOCTYPE a [<!ELEMENT b (c)>]><a>x</a>",
    "<!DOCTYPE a PUBLIC \"-//X//EN\"><a>x</a>",
    "<!DOCTYPE a --><a>x</a>",
    "<!x[CDATA[y]]><a/>",
    "<a><b/></a >",
    "<a/b></a/b>",
    "<a b=\"/\" c='>'/>",
    "<a b=\"1/2\" / c>",
    "<a b='\"' c=\"'\">t</a>",
    "<a b=\"<c d='e'>t</c>",
    "<a b=unquoted/path>t</a>",
    "<a\nb=\"c\">t</a>",
    "<a\tb=\"c\" d>t</a>",
    "<a\r\n b=\"c\rd\">t</a\r>",
    "<<a>",
    "< > < a>t</a>",
    "< ><a>",
    "<a <b>t</b>",
    "<a<b<c>",
    "</a</b>",
    "<file id=\"x\"></file><file></file>",
    "<file id=\"x\"/></file>",
    "<file id=\"x\"></fil",
    "<file id=\"x\"> </file>",
    "<FILE id=\"x\"></FILE>",
    "<a><![CDATA[x]]></a>",
    "<a><![CDATA[]]></a>",
    "<a><![CDATA[]]]]></a>",
    "<a><![CDATA[]]]></a>",
    "<a><![CDATA[x]>]]y]]z<&\r\n>]]></a>",
    "<a>x<![CDATA[y]]>z</a>",
    "<a><![CDATA[never closed</a>",
    "<a><![CDATX[y]]><b/>",
    "<a><![<b/>",
    "<a><!-- x --><b/>",
    "<a><!---><b/>--><c/>",
    "<a><!----><b/>",
    "<a><!-- x ---><b/>",
    "<a><!-- x -- y --><b/>",
    "<a><!-- - -><b/> -->t</a>",
    "<a><!-<b><c/>",
    "<a><!--x--<b><c/>",
    "<a\0b c=\"\0d\">x\0y</\0a>"sv,
    "<a>\0\0</a>"sv,
    "<\0<"sv,
    "<!\0-\0-\0x\0-\0-\0>t<b/>"sv,
    "<!\0[C\0DATA[x\0]\0]\0>t<b/>"sv,
    "<![CDATA[\0]]><b/>"sv,
    "<file id=\"x\">\0</file>"sv,
    "<file id=\"x\"></fi\0le>"sv,
    "<a",
    "<a b",
    "<a b=\"",
    "</a",
    "<",
    "<!",
    "<!-",
    "<!--",
    "<!--x-",
    "<!--x--",
    "<![CDATA[x]]",
};

void ExpectSameEvents(std::string_view input)
{
    for (const bool asLeaf : {false, true})
        ASSERT_EQ(Describe(FastEvents(input, asLeaf)), Describe(LiteralEvents(input, asLeaf)))
            << "input [" << input << "], " << (asLeaf ? "leaf" : "element");
}

TEST(Tokeniser, FollowsTheStateTable)
{
    for (const std::string_view input : kInputs)
        ExpectSameEvents(input);
}

// Pieces that lead from state to state, in any order.
TEST(Tokeniser, FollowsTheStateTableOnRandomInput)
{
    constexpr std::string_view kPieces[] = {
        "<",  ">",  "/",  "!",    "-",   "--",      "[",      "]",    "]]>",  "<![CDATA[",
        "\"", "'",  " ",  "\n",   "\r",  "\t",      "\0"sv,   "a",    "file", "<file id=\"1\">",
        "=",  "</", "<!", "<!--", "-->", "</file>", "CDATA[", "text", "\x1f", "\xff",
    };
    std::mt19937 random(7); // NOLINT: the same inputs on each run
    for (int round = 0; round < 20000; ++round) {
        std::string input;
        for (std::size_t count = random() % 24; count > 0; --count)
            input += kPieces[random() % std::size(kPieces)];
        ExpectSameEvents(input);
    }
}

// The events themselves, so that the two readers can't agree on something wrong.
TEST(Tokeniser, Events)
{
    const struct {
        std::string_view input;
        std::vector<Event> events;
    } kCases[] = {
        {"<?xml version=\"1.0\"?>\n<!DOCTYPE a>\n<a b=\"1\">x</a>",
         {{Event::Start, "?xml", "version=\"1.0\"?"},
          {Event::Start, "a", "b=\"1\""},
          {Event::Text, "x", ""},
          {Event::End, "a", ""}}},
        {"<clip\n id=\"x\">", {{Event::Start, "clip\n", "id=\"x\""}}},
        {"<!-- a --x --><b/>c<d/>",
         {{Event::SelfClosed, "b", ""}, {Event::Text, "c", ""}, {Event::SelfClosed, "d", ""}}},
        {"<a>1\n\t2</a>",
         {{Event::Start, "a", ""}, {Event::Text, "12", ""}, {Event::End, "a", ""}}},
        {"<file id=\"f\"></file>", {{Event::SelfClosed, "file", "id=\"f\""}}},
        {"a<<b>", {{Event::Text, "a", ""}, {Event::SyntaxError, "2", ""}}},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(Describe(FastEvents(row.input, false)), Describe(row.events)) << row.input;
}

TEST(Tokeniser, PassesOverTextThatNobodyKeeps)
{
    Document document;
    Tokeniser tokens("a<b>c<![CDATA[<d>]]></b><e/>f", document);
    EXPECT_EQ(tokens.Next(Content::Tags), Token::Start);
    EXPECT_EQ(tokens.Next(Content::Tags), Token::End);
    EXPECT_EQ(tokens.Next(Content::Tags), Token::Start);
    EXPECT_EQ(tokens.Name(), "e");
    EXPECT_EQ(tokens.Next(Content::Tags), Token::EndOfInput);
    EXPECT_EQ(tokens.Next(Content::Tags), Token::EndOfInput);
}

TEST(Tokeniser, Attributes)
{
    const struct {
        std::string_view text, name;
        bool found;
        std::string_view value;
    } kCases[] = {
        {"id=\"a\" masterclipid=\"b\"", "id", true, "a"},
        {"masterclipid=\"b\" id=\"a\"", "id", true, "b"}, // the first hit, wherever it is
        {"idx=\"c\" id=\"a\"", "id", true, "a"},
        {"id='a'", "id", false, ""},
        {"id = \"a\"", "id", false, ""},
        {"id=\"\"", "id", true, ""},
        {"id=\"a b", "id", true, "a b"},
        {"", "id", false, ""},
    };
    for (const auto& row : kCases) {
        std::string_view value;
        EXPECT_EQ(GetAttribute(row.text, row.name, value), row.found) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
    }
}

// Name and attributes of start tags, and "/" with the name of end tags.
TEST(Tokeniser, ByTheRulesOfXmlTagsMayHaveAnyBlanks)
{
    const struct {
        std::string_view input, tags;
    } kCases[] = {
        {"<a\n b=\"1\"\n c=\"2\">", "a[ b=\"1\"\n c=\"2\"]"},
        {"<a\tb=\"1\"/>", "a[b=\"1\"]"},
        {"<a\r\n>x</a\r\n><b></b >", "a[\n]/a[]b[]/b[]"},
        {"<!DOCTYPE a SYSTEM \"--\"><a>", "a[]"},
        {"<!DOCTYPE a [<!ENTITY b \"-- >\">]><a>", "a[]"},
        {"<!--<a>--><b>", "b[]"},
        {"<a><![CDATA[<b>]]></a>", "a[]/a[]"},
    };
    for (const auto& row : kCases) {
        Document document;
        Tokeniser tokens(row.input, document, nullptr, TagRules::Xml);
        std::string tags;
        for (Token token = tokens.Next(Content::Tags); token != Token::EndOfInput;
             token = tokens.Next(Content::Tags)) {
            const bool isStart = token == Token::Start;
            tags.append(isStart ? "" : "/").append(tokens.Name()).append("[");
            tags.append(isStart ? tokens.Attributes() : "").append("]");
        }
        EXPECT_EQ(tags, row.tags) << row.input;
    }
}

} // namespace
} // namespace XPJ

#include "grading/xml_file.h"

#include <gtest/gtest.h>

#include <string>

namespace XPJ {
namespace {

using Status = CZvXMLFile::Status;

// "a( \"1\" b( ) )": tags with brackets, values in quotes, or "MESSAGE @line:column".
std::string Tokens(std::string_view text)
{
    std::string tokens;
    CZvXMLFile file;
    file.Open(text);
    try {
        for (Status status = file.Next(); status != Status::End; status = file.Next()) {
            tokens += tokens.empty() ? "" : " ";
            if (status == Status::StartTag)
                tokens += file.TagName() + "(";
            else
                tokens += status == Status::EndTag ? ")" : '"' + file.Value() + '"';
        }
    } catch (const CZvError& error) {
        tokens =
            error.message + " @" + std::to_string(error.line) + ":" + std::to_string(error.column);
    }
    return tokens;
}

TEST(XMLFile, ReadsTagsAndValues)
{
    const struct {
        std::string_view text;
        std::string_view tokens;
    } rows[] = {
        {"", ""},
        {" \t\r\n", ""},
        {"<a/>", "a( )"},
        {"<Look></lOOK>", "Look( )"},
        {"<a>bare</a>", "a( \"bare\" )"},
        {"<a>  two words \t\n</a>", "a( \"two words\" )"},
        {"<a>\"\"</a>", "a( \"\" )"},
        {"<a>\" b\n<c> & &amp; /\"</a>", "a( \" b\n<c> & &amp; /\" )"},
        {"<a>one\"two\"three</a>", "a( \"one\" \"two\" \"three\" )"},
        {"<a>one\n\"two\"\nthree\n</a>", "a( \"one\" \"two\" \"three\" )"},
        {"<a>1<b>2</b>3</a>", "a( \"1\" b( \"2\" ) \"3\" )"},
        {"<a>1\n<b/>\n2</a>", "a( \"1\" b( ) \"2\" )"},
        {"<a>x/y>z='</a>", "a( \"x/y>z='\" )"},
        {"<1d-grading:x>\n</1D-GRADING:X>", "1d-grading:x( )"},
        {"\xEF\xBB\xBF<?xml version=\"1.0\" ?>\n<!-- <b> -->\n<!DOCTYPE a><a/><!---->", "a( )"},
        {"<a/><b/>", "a( ) b( )"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Tokens(row.text), row.tokens) << row.text;
}

TEST(XMLFile, SaysWhatIsWrongAndWhere)
{
    const struct {
        std::string_view text;
        std::string_view error;
    } rows[] = {
        {"</a>", "Unexpected end tag at root level @1:1"},
        {"<a/>\n </a>", "Unexpected end tag at root level @2:2"},
        {"<a>", "Unexpected end of file while looking for </a> @1:4"},
        {"<a>\r\n\r1", "Unexpected end of file while looking for </a> @3:2"},
        {"<a>\"1", "Unexpected end of file while looking for \" @1:6"},
        {"<a", "Unexpected end of file while looking for > @1:3"},
        {"<a/", "Unexpected end of file while looking for > @1:4"},
        {"<", "Unexpected end of file while looking for > @1:2"},
        {"<?xml >", "Unexpected end of file while looking for ?> @1:8"},
        {"<!-->", "Unexpected end of file while looking for --> @1:6"},
        {"<a\n>", "Newline unexpected in < > brackets. @1:3"},
        {"<\n", "Newline unexpected in < > brackets. @1:2"},
        {"<a></a\r>", "Newline unexpected in < > brackets. @1:7"},
        {"<a b=\"1\">", "Whitespace unexpected in < > brackets. @1:3"},
        {"<a />", "Whitespace unexpected in < > brackets. @1:3"},
        {"<a></ a>", "Whitespace unexpected in < > brackets. @1:6"},
        {"<a>one\ntwo</a>",
         "Unexpected newline in value. Use \" \" to enclose values with newlines. @2:1"},
        {"\xEF\xBB\xBF<a>\n</b>", "Expected </a> @2:1"},
        {"\xEF\xBB\xBF<a></b>", "Expected </a> @1:4"},
        {"<a><b></a>", "Expected </b> @1:7"},
        {"<>", "Expected name @1:2"},
        {"<a><//a>", "Expected name @1:6"},
        {"<a/b>", "Expected > @1:4"},
        {"<a<b>", "Expected > @1:3"},
        {"text", "Expected < @1:1"},
        {"<a/>\ntext", "Expected < @2:1"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Tokens(row.text), row.error) << row.text;
}

TEST(XMLFile, NestsSixtyFourLevels)
{
    std::string text;
    for (int i = 0; i < 64; ++i)
        text += "<a>";
    EXPECT_EQ(Tokens(text), "Unexpected end of file while looking for </a> @1:193");
    EXPECT_EQ(Tokens(text + "<b>"), "Expected </a> @1:193");
    // Without end.
    std::string deep;
    for (int i = 0; i < 1'000'000; ++i)
        deep += "<a>";
    EXPECT_EQ(Tokens(deep), "Expected </a> @1:193");
}

TEST(XMLFile, SkipsElementsWhole)
{
    CZvXMLFile file;
    EXPECT_THROW(file.Next(), CZvError);
    file.Open("<a><b>1<c>\"</b>\"</c></b><d/></a>");
    file.Next();
    EXPECT_EQ(file.Next(), Status::StartTag);
    file.SkipElement();
    EXPECT_EQ(file.Next(), Status::StartTag);
    EXPECT_EQ(file.TagName(), "d");
    file.SkipElement();
    EXPECT_EQ(file.Next(), Status::EndTag);
    EXPECT_EQ(file.TagName(), "a");
    EXPECT_EQ(file.Next(), Status::End);
    EXPECT_EQ(file.Next(), Status::End);
}

TEST(XMLFile, HashesNamesWithoutCase)
{
    CZvXMLFile file;
    file.Open("<FooBar/>");
    file.Next();
    EXPECT_EQ(file.TagHash(), 0xBF9CF968U); // FNV-1a of "foobar"
    EXPECT_EQ(file.TagName(), "FooBar");
}

} // namespace
} // namespace XPJ

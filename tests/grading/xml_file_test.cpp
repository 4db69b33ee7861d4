#include "grading/xml_file.h"

#include "support/rows.h"

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

    for (const auto& row : ReadRows("grading/xml_tokens.txt", 2))
        EXPECT_EQ(Tokens(row[0]), row[1]) << row[0];
}

TEST(XMLFile, ReportsWhatIsWrongAndWhere)
{

    for (const auto& row : ReadRows("grading/xml_faults.txt", 2))
        EXPECT_EQ(Tokens(row[0]), row[1]) << row[0];
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

TEST(XMLFile, SkipsElementsWithTheirContents)
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

#include "support/temp_folder.h"
#include "xmeml/sniff.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(SniffText, WantsTheVersionAndOneMoreMark)
{
    const std::string padding(1000, ' ');
    const struct {
        std::string text;
        bool isFCPXML;
        bool sn2vlMode;
    } rows[] = {
        {"<xmeml version=\"4\"><sequence", true, false},
        {"<XMEML VERSION=\"4\"><SEQUENCE", true, false},
        {"<!DOCTYPE xmeml>\n<xmeml version=", true, false},
        {"<xmeml version=\"4\"><bin>", true, false},
        {"<xmeml version=\"4\"><clip id=\"a\">", true, false},
        {"<xmeml version=\"5\"><project>", true, false},
        {"<xmeml version=\"4\"><effect>", false, false},
        {"<xmeml  version=\"4\"><sequence", false, false},
        {"<sequence><clip><project>", false, false},
        {"", false, false},
        {padding.substr(0, 975) + "<xmeml version=\"4\"><clip ", true, false},
        {padding.substr(0, 977) + "<xmeml version=\"4\"><clip ", false, false},
        {padding + "<xmeml version=\"4\"><sequence", false, false},
        {"<xmeml version=\"4\"><ImportOptions><Sn2Vl><project", true, true},
        {"<xmeml version=\"4\"><sn2vl><project", true, false},
        {"<importoptions><sn2vl><project", false, false},
    };
    for (const auto& [text, isFCPXML, sn2vlMode] : rows) {
        const FileKind kind = SniffText(text);
        EXPECT_EQ(kind.isFCPXML, isFCPXML) << text;
        EXPECT_EQ(kind.sn2vlMode, sn2vlMode) << text;
    }
}

TEST(SniffFile, AFileThatCannotBeReadIsNoDocument)
{
    const TempFolder folder;
    const std::string document = "<xmeml version=\"4\"><bin>";
    EXPECT_TRUE(SniffFile(folder.Write("a.xml", document)).isFCPXML);
    // Nor is one of wide characters, which only the reader decodes.
    std::string wide = "\xFF\xFE";
    for (const char c : document)
        (wide += c) += '\0';
    EXPECT_FALSE(SniffFile(folder.Write("wide.xml", wide)).isFCPXML);
    EXPECT_FALSE(SniffFile(folder.Write("empty.xml", "")).isFCPXML);
    EXPECT_FALSE(SniffFile(folder / "none.xml").isFCPXML);
    EXPECT_FALSE(SniffFile(folder.Path()).isFCPXML);
}

} // namespace
} // namespace XPJ

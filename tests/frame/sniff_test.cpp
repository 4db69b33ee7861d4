#include "frame/sniff.h"
#include "frame_test_support.h"

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
    EXPECT_TRUE(SniffFile(folder.Write("a.xml", kSmallXML)).isFCPXML);
    EXPECT_FALSE(SniffFile(folder.Write("empty.xml", "")).isFCPXML);
    EXPECT_FALSE(SniffFile(folder / "none.xml").isFCPXML);
    EXPECT_FALSE(SniffFile(folder.Path()).isFCPXML);
}

TEST(ExportTargetOf, TakesTheMarkOutOfTheName)
{
    const struct {
        const char* path;
        const char* target;
        const char* title;
        bool vl2snMode;
    } rows[] = {
        {"/p/clip.xml", "/p/clip.xml", "clip", false},
        {"/p/clip__Vl2Sn__final.xml", "/p/final.xml", "final", true},
        {"a__Vl2Sn__b__Vl2Sn__c.xml", "b__Vl2Sn__c.xml", "b__Vl2Sn__c", true},
        {"/p__Vl2Sn__q/clip.v2.xml", "/p__Vl2Sn__q/clip.v2.xml", "clip.v2", false},
        {"/p/clip", "/p/clip", "clip", false},
        {"/p/.xml", "/p/.xml", "Orrin Vela Pro Project", false},
        {"/p/clip__Vl2Sn__", "/p/", "Orrin Vela Pro Project", true},
        {"", "", "Orrin Vela Pro Project", false},
    };
    for (const auto& [path, targetPath, title, vl2snMode] : rows) {
        const ExportTarget target = ExportTargetOf(path);
        EXPECT_EQ(target.path, targetPath) << path;
        EXPECT_EQ(target.title, title) << path;
        EXPECT_EQ(target.vl2snMode, vl2snMode) << path;
    }
}

} // namespace
} // namespace XPJ

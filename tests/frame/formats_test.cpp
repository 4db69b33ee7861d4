#include "frame/formats.h"

#include "core/conversion_result.h"
#include "frame_test_support.h"
#include "support/test_progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace XPJ {
namespace {

TEST(FormatOfText, GoesByTheDocumentElement)
{
    std::string farFromTheStart(70000, ' ');
    farFromTheStart += kSmallProject;
    const struct {
        std::string_view text;
        std::string_view extension;
    } rows[] = {
        {kSmallXML, "xml"},
        {kSmallProject, "vlproj"},
        {"<!-- VelaData --><xmeml version=\"4\"/>", "xml"},
        {"<VelaData><Name>xmeml</Name></VelaData>", "vlproj"},
        {"<VelaData><xmeml/></VelaData>", "xml"},
        {farFromTheStart, "xml"},
        {"plain text", "xml"},
        {"", "xml"},
    };
    for (const auto& [text, extension] : rows)
        EXPECT_EQ(FormatOfText(text).extension, extension) << text.substr(0, 40);
}

TEST(FormatOfExtension, MindsTheCase)
{
    EXPECT_EQ(FormatOfExtension("xml"), &FormatOf(TreeKind::Xmeml));
    EXPECT_EQ(FormatOfExtension("vlproj"), &FormatOf(TreeKind::Project));
    for (const std::string_view extension : {"", "XML", "xm", "xmll", ".xml"})
        EXPECT_EQ(FormatOfExtension(extension), nullptr) << extension;
}

// What a format writes it also reads, from text and from a file.
TEST(Formats, ReadTheirOwnDocuments)
{
    const TempFolder folder;
    for (const Format& format : AllFormats()) {
        const std::string text = format.kind == TreeKind::Xmeml ? kSmallXML : kSmallProject;
        Document document;
        ObjectHandle root;
        DocumentDetails details;
        ASSERT_EQ(format.parse(text, false, document, root, details), kSuccess) << format.name;
        EXPECT_EQ(root.GetName(), format.element);

        std::ostringstream output;
        TestProgress progress;
        ASSERT_EQ(format.write(root, {}, progress, output), kSuccess) << format.name;
        const std::string path = folder.Write("copy", output.str());
        EXPECT_EQ(format.read({.path = path}, progress, document, root, details), kSuccess)
            << format.name;
        EXPECT_EQ(root.GetName(), format.element);
        EXPECT_FALSE(details.isHandOff);
    }
}

TEST(Formats, AFileThatCannotBeReadHasAReason)
{
    const TempFolder folder;
    for (const Format& format : AllFormats())
        for (const std::string& path : {folder / "none", folder.Path()}) {
            Document document;
            ObjectHandle root;
            DocumentDetails details;
            TestProgress progress;
            EXPECT_EQ(format.read({.path = path}, progress, document, root, details),
                      kInputCouldNotBeOpened)
                << format.name << " " << path;
            EXPECT_FALSE(details.stop.reason.empty()) << format.name << " " << path;
        }
}

} // namespace
} // namespace XPJ

#include "frame/media_path_changes.h"

#include "core/text.h"
#include "report/remark_groups.h"
#include "support/test_progress.h"
#include "support/xmeml_fixture.h"
#include "xmeml/files.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace XPJ {
namespace {

class MediaPathChanges : public XmemlTest {
protected:
    // Maps /old to /new and looks for nothing.
    void Change(ObjectHandle sequence)
    {
        PathMap map;
        map.Add("/old", "/new & best");
        MediaPaths paths(std::move(map), {});
        ChangeMediaPaths(paths, "/documents/", sequence, progress_, account_);
    }
    ObjectHandle SequenceOf(const std::string& items)
    {
        return ParseSequence("<media><video><track>" + items + "</track></video></media>");
    }

    TestProgress progress_;
    Account account_;
};

TEST_F(MediaPathChanges, WhereFilesStateTheirPath)
{
    const struct {
        std::string_view what;
        std::string file; // its content
        std::string path; // after the change
    } kCases[] = {
        {"a URL", "<pathurl>file://localhost/old/a%20b.mov</pathurl>", "/new & best/a b.mov"},
        {"another path", "<pathurl>file://localhost/other/a.mov</pathurl>", "/other/a.mov"},
        {"what looks like an entity", "<pathurl>file://localhost/old/&amp;amp;.mov</pathurl>",
         "/new & best/&amp;.mov"},
        {"a camera's folders, which count before the URL",
         "<pathurl>file://localhost/x.mov</pathurl><metadata><key>k</key><value>v</value></"
         "metadata>"
         "<metadata><key>com.red.clip.originalSourcePath</key><value>/old/A001.RDC/1.R3D</value>"
         "</metadata>",
         "/new & best/A001.RDC/1.R3D"},
        {"marked as offline",
         "<pathurl>file://localhost/old/a.mov</pathurl><velaOffline>TRUE</velaOffline>", ""},
        {"generated", "<mediaSource>Slug</mediaSource>", ""},
    };
    for (const auto& row : kCases) {
        const ObjectHandle sequence = SequenceOf(
            "<clipitem id=\"c\"><file id=\"f\"><name>n</name>" + row.file + "</file></clipitem>");
        Change(sequence);
        const FileElement file(
            FindPath(ConstHandle(sequence), {"media", "video", "track", "clipitem", "file"}));
        EXPECT_EQ(UnescapeXML(PathOfFile(file, "")), row.path) << row.what;
    }
}

TEST_F(MediaPathChanges, OneRemarkForEachPath)
{
    const auto item = [](int id, const std::string& path) {
        return fmt::format("<clipitem id=\"c{0}\"><file id=\"f{0}\"><name>A &amp; B</name>"
                           "<pathurl>{1}</pathurl></file></clipitem>",
                           id, path);
    };
    const std::string again = "<clipitem id=\"c9\"><file id=\"f1\"/></clipitem>";
    Change(SequenceOf(item(1, "/old/a.mov") + item(2, "/old/a.mov") + again +
                      item(3, "/old/b.mov") + item(4, "/other.mov")));
    ASSERT_EQ(account_.remarks.size(), 2U);
    EXPECT_EQ(ReasonText(account_.remarks[0]), "The path /old/a.mov became /new & best/a.mov.");
    EXPECT_EQ(PlaceText(account_.remarks[0]), "A & B");
    EXPECT_EQ(account_.remarks[0].count, 2U);
    EXPECT_EQ(account_.remarks[1].count, 1U);
}

TEST_F(MediaPathChanges, LooksAndWhatTheyDependOn)
{
    const ObjectHandle sequence = SequenceOf(
        "<clipitem id=\"c\"><filter><effect><name>Warm</name><effectid>Gradiva</effectid>"
        "<parameter><name>path</name><value>file://localhost/old/warm.cube</value></parameter>"
        "<dependency><tag>a</tag><path>/old/b.cube</path></dependency>"
        "<dependency><tag>a</tag><path>old/b.cube</path></dependency></effect></filter>"
        "<filter><effect><name>Other</name><effectid>Other</effectid>"
        "<parameter><name>path</name><value>/old/no path</value></parameter></effect></filter>"
        "</clipitem>");
    Change(sequence);
    std::string changes;
    for (const Remark& remark : account_.remarks)
        changes += ReasonText(remark) + "\n";
    EXPECT_EQ(changes, "The path /old/b.cube became /new & best/b.cube.\n"
                       "The path /old/warm.cube became /new & best/warm.cube.\n");
}

} // namespace
} // namespace XPJ

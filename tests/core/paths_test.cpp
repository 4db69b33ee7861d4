#include "core/paths.h"

#include "support/rows.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(Paths, UrlOfAPath)
{
    const struct {
        std::string_view path, url;
    } kCases[] = {
        {"", ""},
        {"C:\\My Clip.mov", "file://localhost/C%3a/My%20Clip.mov"},
        {"\\\\srv\\a", "file://srv/a"},
        {"/Volumes/M/50%.mov", "file://localhost/Volumes/M/50%25.mov"},
        {"/caf\xc3\xa9\n.mov", "file://localhost/caf%c3%a9%0a.mov"},
        {"/a\x7f", "file://localhost/a\x7f"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(MakePathUrl(row.path), row.url) << row.path;
}

TEST(Paths, PathOfAUrl)
{
    for (const auto& row : ReadRows("core/paths_of_urls.txt", 4)) {
        const PathStyle style = row[0] == "Windows" ? PathStyle::Windows : PathStyle::Posix;
        EXPECT_EQ(PathFromUrl(row[1], row[2], style), row[3]) << row[1];
    }
}

TEST(Paths, UrlsOfLocalPathsComeBack)
{
    for (const std::string_view path :
         {"/Volumes/M/a b.mov", "C:/My Clip.mov", "//srv/share/100% \xc3\xa4.mov"})
        EXPECT_EQ(PathFromUrl(MakePathUrl(path), "/base/"), path);
    constexpr std::string_view kWindows = "D:\\x y\\\xc3\xa4.mov";
    EXPECT_EQ(PathFromUrl(MakePathUrl(kWindows), "", PathStyle::Windows), kWindows);
}

TEST(Paths, Parts)
{
    EXPECT_EQ(FolderOf("/a/b.xml"), "/a/");
    EXPECT_EQ(FolderOf("b.xml"), "");
    EXPECT_EQ(FileNameOf("/a/b.xml"), "b.xml");
    EXPECT_EQ(FileNameOf("C:\\a\\b.xml", PathStyle::Windows), "b.xml");
    EXPECT_EQ(ExtensionOf("/a.b/c"), "");
    EXPECT_EQ(ExtensionOf("/a/c.tar.gz"), "gz");
}

} // namespace
} // namespace XPJ

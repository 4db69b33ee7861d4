#include "core/paths.h"

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
    const struct {
        PathStyle style;
        std::string_view url, base, path;
    } kCases[] = {
        {PathStyle::Windows, "file://localhost/C%3a/My%20Clip.mov", "", "C:\\My Clip.mov"},
        {PathStyle::Windows, "file://localhost/Volumes/a.mov", "", "Volumes\\a.mov"},
        {PathStyle::Windows, "file://srv/a.mov", "", "\\\\srv\\a.mov"},
        {PathStyle::Windows, "a.mov", "D:\\proj\\x.xml", "D:\\proj\\a.mov"},
        {PathStyle::Windows, "a.mov", "x.xml", "a.mov"},
        {PathStyle::Windows, "eamedia:/x", "", "eamedia:/x"},
        {PathStyle::Windows, "a%zz%20b", "", "a%zz%20b"},
        {PathStyle::Posix, "file://localhost/Media/Day%202/b.mov", "", "/Media/Day 2/b.mov"},
        {PathStyle::Posix, "file:///Volumes/a.mov", "", "/Volumes/a.mov"},
        {PathStyle::Posix, "file://localhost/C%3a/My%20Clip.mov", "", "C:/My Clip.mov"},
        {PathStyle::Posix, "file:///C:/a.mov", "", "C:/a.mov"},
        {PathStyle::Posix, "file://srv/share/a.mov", "", "//srv/share/a.mov"},
        {PathStyle::Posix, "a.mov", "/proj/", "/proj/a.mov"},
        {PathStyle::Posix, "file:a.mov", "/proj/", "/proj/a.mov"},
        {PathStyle::Posix, "a.mov", "", "a.mov"},
        {PathStyle::Posix, "/a.mov", "/proj/", "/a.mov"},
        {PathStyle::Posix, "http://host/a.mov", "/proj/", "http://host/a.mov"},
        {PathStyle::Posix, "", "/proj/", ""},
        // An escape needs two digits behind it; the first that lacks them ends the decoding.
        {PathStyle::Posix, "/%41%4", "", "/A%4"},
        {PathStyle::Posix, "/%41%", "", "/A%"},
        {PathStyle::Posix, "/a%2541", "", "/a%41"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(PathFromUrl(row.url, row.base, row.style), row.path) << row.url;
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

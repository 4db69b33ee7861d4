#include "media/path_map.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr std::string_view kNoChange = "";

TEST(PathMap, LongestPrefixOfWholeComponents)
{
    PathMap map;
    map.Add("/Volumes/Media", "/mnt/raid");
    map.Add("/Volumes/Media/Day 1/", "/mnt/day1/");
    map.Add("/Volumes/Media", "/never");
    map.Add("/Volumes/Same", "/Volumes/Same");
    map.Add("C:\\Show", "/mnt/show");
    map.Add("/d:/", "E:\\Footage");
    map.Add("\\\\server\\share", "/mnt/share");
    map.Add("file://localhost/Volumes/100%25%20Sound", "file://localhost/mnt/%c3%a4");
    map.Add("/literal%20name", "/mnt/literal");
    const struct {
        std::string_view path, mapped;
    } kCases[] = {
        {"/Volumes/Media/a.mov", "/mnt/raid/a.mov"},
        {"/Volumes/Media", "/mnt/raid"},
        {"/Volumes/Media/Day 1/a.mov", "/mnt/day1/a.mov"},
        {"/Volumes/Media/Day 10/a.mov", "/mnt/raid/Day 10/a.mov"},
        {"/Volumes/Media 2/a.mov", kNoChange},
        {"/volumes/media/a.mov", kNoChange},
        {"/x/Volumes/Media/a.mov", kNoChange},
        {"/Volumes/Same/a.mov", kNoChange},
        {"", kNoChange},
        {"a.mov", kNoChange},
        // Drives, in either case and as URLs have them.
        {"C:\\Show\\a.mov", "/mnt/show/a.mov"},
        {"c:/Show/a.mov", "/mnt/show/a.mov"},
        {"/C:/Show/a.mov", "/mnt/show/a.mov"},
        {"C:/show/a.mov", kNoChange},
        {"D:\\a.mov", "E:/Footage/a.mov"},
        {"//server/share/a.mov", "/mnt/share/a.mov"},
        {"//server/other/a.mov", kNoChange},
        // Only URLs have escapes.
        {"/Volumes/100% Sound/a.wav", "/mnt/\xc3\xa4/a.wav"},
        {"/literal%20name/a.wav", "/mnt/literal/a.wav"},
        {"/literal name/a.wav", kNoChange},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(map.Mapped(row.path).value_or(""), row.mapped) << row.path;
}

TEST(PathMap, RootIsAPrefixOfAllButServers)
{
    PathMap map;
    map.Add("/", "/mnt/old-disk/");
    EXPECT_EQ(map.Mapped("/Users/a.mov"), "/mnt/old-disk/Users/a.mov");
    EXPECT_EQ(map.Mapped("//server/a.mov"), std::nullopt);
    EXPECT_EQ(map.Mapped("C:/a.mov"), std::nullopt);

    PathMap toRoot;
    toRoot.Add("/mnt/disk", "/");
    EXPECT_EQ(toRoot.Mapped("/mnt/disk/a.mov"), "/a.mov");
}

TEST(PathMap, EmptyPrefixesAreNone)
{
    PathMap map;
    EXPECT_FALSE(map.Add("", "/a"));
    EXPECT_FALSE(map.Add("/a", ""));
    EXPECT_TRUE(map.IsEmpty());
}

TEST(PathMap, PairsOfAFile)
{
    const struct {
        std::string_view csv, fault;
        std::string_view mapped; // of "/old, 1/a.mov"
    } kCases[] = {
        {"", "", kNoChange},
        {"old,new\n\"/old, 1\",/new\n", "", "/new/a.mov"},
        {"\xEF\xBB\xBFOld,New\r\n\r\n\"/old, 1\",\"/say \"\"new\"\"\"\r\n", "",
         "/say \"new\"/a.mov"},
        {"\"/old, 1\",/new", "", "/new/a.mov"},
        {"/x,/y\nold,new\n\"/old, 1\",\"/two\nlines\"", "", "/two\nlines/a.mov"},
        {"old,new\n/a,/b\n/old, 1,/c\n", "m.csv:3: not two columns, the old path and the new one",
         kNoChange},
        {"/a\n", "m.csv:1: not two columns, the old path and the new one", kNoChange},
        {"\n\n/a,\n", "m.csv:3: one of the two paths is empty", kNoChange},
        {"\"/a\nb\",/c\n\"/d,/e\n", "m.csv:3: the closing quote of a field is missing", kNoChange},
        {"\"/a\"b,/c\n", "m.csv:1: text after the closing quote of a field", kNoChange},
        {"/a\"b,/c\n", "m.csv:1: a quote inside a field without quotes", kNoChange},
    };
    for (const auto& row : kCases) {
        PathMap map;
        EXPECT_EQ(AddPathPairs(row.csv, "m.csv", map), row.fault) << row.csv;
        EXPECT_EQ(map.Mapped("/old, 1/a.mov").value_or(""), row.mapped) << row.csv;
    }
    PathMap map;
    EXPECT_EQ(AddPathFile("/no/such.csv", map), "/no/such.csv: the file can't be read");
}

} // namespace
} // namespace XPJ

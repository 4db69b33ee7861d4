#include "media/media_bytes.h"
#include "media/media_paths.h"
#include "support/temp_folder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace XPJ {
namespace {

namespace fs = std::filesystem;

TEST(MediaPaths, FactsThatGoTogether)
{
    const MediaFacts stated{.width = 1920,
                            .height = 1080,
                            .frameTicks = kPalFrameTicks,
                            .length = 100 * kPalFrameTicks,
                            .start = 3600 * kTicksPerSecond,
                            .sampleRate = 48000,
                            .channels = 2};
    const struct {
        std::string_view what;
        void (*change)(MediaFacts& stated, MediaFacts& found);
        bool isOfOtherTime;
        int agreements;
    } kCases[] = {
        {"the same", [](MediaFacts&, MediaFacts&) {}, false, 6},
        {"nothing known", [](MediaFacts&, MediaFacts& found) { found = {}; }, false, 0},
        {"nothing stated", [](MediaFacts& document, MediaFacts&) { document = {}; }, false, 0},
        {"a frame longer", [](MediaFacts&, MediaFacts& found) { found.length += kPalFrameTicks; },
         false, 6},
        {"two frames longer",
         [](MediaFacts&, MediaFacts& found) { found.length += 2 * kPalFrameTicks; }, true, 5},
        {"another start",
         [](MediaFacts&, MediaFacts& found) { *found.start += 2 * kPalFrameTicks; }, true, 5},
        {"a start of 0, which may mean none",
         [](MediaFacts& document, MediaFacts&) { document.start = 0; }, false, 5},
        {"another rate", [](MediaFacts&, MediaFacts& found) { found.frameTicks = kNtscFrameTicks; },
         true, 5},
        {"a proxy",
         [](MediaFacts&, MediaFacts& found) {
             found.width = 960;
             found.height = 540;
         },
         false, 5},
        {"of the same height", [](MediaFacts&, MediaFacts& found) { found.width = 1440; }, false,
         5},
        {"other audio",
         [](MediaFacts&, MediaFacts& found) {
             found.sampleRate = 44100;
             found.channels = 1;
         },
         false, 4},
        {"beyond all numbers",
         [](MediaFacts& document, MediaFacts& found) {
             document.start = std::numeric_limits<Ticks>::max();
             found.start = std::numeric_limits<Ticks>::min();
         },
         true, 5},
    };
    for (const auto& row : kCases) {
        MediaFacts document = stated;
        MediaFacts found = stated;
        row.change(document, found);
        const FactsFit fit = CompareFacts(document, found);
        EXPECT_EQ(fit.isOfOtherTime, row.isOfOtherTime) << row.what;
        EXPECT_EQ(fit.agreements, row.agreements) << row.what;
    }
}

class RelinkTest : public ::testing::Test {
protected:
    RelinkTest() : root_(fs::canonical(folder_.Path())) {}

    std::string Write(const std::string& name, const std::string& bytes = "x")
    {
        const fs::path path = root_ / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
        return path.string();
    }
    MediaPath Find(const std::string& path, const MediaFacts& stated = {})
    {
        return MediaPaths({}, {root_.string()}).Find(path, stated);
    }

    TempFolder folder_;
    fs::path root_;
};

TEST_F(RelinkTest, ByName)
{
    const std::string there = Write("a.mov");
    const std::string deep = Write("1/2/3/b.mov");
    const std::string upper = Write("1/C.MOV");
    const std::string lower = Write("2/c.mov");
    const struct {
        std::string path, found;
        MediaSearchResult search;
    } kCases[] = {
        {there, there, MediaSearchResult::NotNeeded},
        {"", "", MediaSearchResult::NotNeeded},
        {"/gone/b.mov", deep, MediaSearchResult::Found},
        {"C:\\gone\\b.mov", deep, MediaSearchResult::Found},
        {"/gone/B.mov", deep, MediaSearchResult::Found},
        {"/gone/c.mov", lower, MediaSearchResult::Found},
        {"/gone/C.MOV", upper, MediaSearchResult::Found},
        {"/gone/C.mov", "/gone/C.mov", MediaSearchResult::Ambiguous},
        {"/gone/d.mov", "/gone/d.mov", MediaSearchResult::NotFound},
        {"/gone/1", "/gone/1", MediaSearchResult::NotFound},
    };
    for (const auto& row : kCases) {
        const MediaPath found = Find(row.path);
        EXPECT_EQ(found.path, row.found) << row.path;
        EXPECT_EQ(found.search, row.search) << row.path;
    }
}

TEST_F(RelinkTest, MappedFirst)
{
    const std::string file = Write("new/a.mov");
    PathMap map;
    map.Add("/old", (root_ / "new").string());
    MediaPaths mapping(map, {});
    EXPECT_EQ(mapping.Find("/old/a.mov", {}).path, file);
    const MediaPath missing = mapping.Find("/old/b.mov", {});
    EXPECT_TRUE(missing.isMapped);
    EXPECT_EQ(missing.search, MediaSearchResult::NotNeeded);

    MediaPaths both(map, {root_.string()});
    EXPECT_EQ(both.Find("/old/a.mov", {}).search, MediaSearchResult::NotNeeded);
    const MediaPath elsewhere = both.Find("/old/sub/a.mov", {});
    EXPECT_TRUE(elsewhere.isMapped);
    EXPECT_EQ(elsewhere.path, file);
}

TEST_F(RelinkTest, HeadersDecideAmongSeveral)
{
    const MediaFacts stated{.width = 1920,
                            .height = 1080,
                            .frameTicks = kPalFrameTicks,
                            .length = 250 * kPalFrameTicks,
                            .start = 3600 * kTicksPerSecond};
    const std::string hour1 = SmallMovie(1920, 1080, 250, 90000);
    const std::string hour2 = SmallMovie(1920, 1080, 250, 180000);
    const std::string proxy = SmallMovie(960, 540, 250, 90000);
    const std::string damaged = hour1.substr(0, 100);
    const struct {
        std::string_view what;
        std::vector<std::string> files;
        int taken; // -1: none
    } kCases[] = {
        {"the timecode", {hour2, hour1}, 1},
        {"the frame size", {proxy, hour2, hour1}, 2},
        {"a proxy alone", {hour2, proxy}, 1},
        {"twice the same", {hour1, hour2, hour1}, -1},
        {"none fits", {hour2, SmallMovie(1920, 1080, 100, 90000)}, -1},
        {"damaged, and one that fits", {damaged, hour1}, 1},
        {"nothing known", {damaged, "x"}, -1},
        {"one is enough", {hour2}, 0},
    };
    for (const auto& row : kCases) {
        fs::remove_all(root_);
        std::vector<std::string> paths;
        for (const std::string& bytes : row.files)
            paths.push_back(Write(fmt::format("{}/a.mov", paths.size()), bytes));
        const MediaPath found = Find("/gone/a.mov", stated);
        EXPECT_EQ(found.path,
                  row.taken < 0 ? "/gone/a.mov" : paths[static_cast<std::size_t>(row.taken)])
            << row.what;
        EXPECT_EQ(found.candidates, row.taken < 0 ? row.files.size() : 0) << row.what;
    }
}

TEST_F(RelinkTest, LinksLeadToEachFileOnce)
{
    const std::string file = Write("1/a.mov");
    Write("2/other.mov");
    fs::create_directory_symlink(root_, root_ / "1/up");
    fs::create_directory_symlink("self", root_ / "self");
    fs::create_directory_symlink(root_ / "1", root_ / "0-linked");
    fs::create_symlink(file, root_ / "2/a.mov");
    fs::create_symlink("nowhere", root_ / "2/dangling.mov");
    EXPECT_EQ(Find("/gone/a.mov").path, file);
    EXPECT_EQ(Find("/gone/dangling.mov").search, MediaSearchResult::NotFound);
    // Folders that overlap.
    MediaPaths paths({}, {(root_ / "1").string(), root_.string() + "/", "/no/such/folder"});
    EXPECT_EQ(paths.Find("/gone/a.mov", {}).path, file);
}

TEST_F(RelinkTest, FoldersAreWalkedOnceUnlessStopped)
{
    const std::string file = Write("a.mov");
    MediaPaths paths({}, {root_.string()});
    EXPECT_EQ(paths.Find("/gone/a.mov", {}, [] { return true; }).search,
              MediaSearchResult::NotFound);
    EXPECT_EQ(paths.Find("/gone/a.mov", {}).path, file);
    Write("b.mov");
    EXPECT_EQ(paths.Find("/gone/b.mov", {}).search, MediaSearchResult::NotFound);
}

} // namespace
} // namespace XPJ

#include "core/json.h"
#include "report/page/page.h"

#include "page_documents.h"

#include <chrono>
#include <limits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace XPJ {
namespace {

using namespace Inspection;
using Json = nlohmann::json;

int Count(std::string_view text, std::string_view part)
{
    int count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

// What a browser takes for the text of the element.
std::string_view DataOf(std::string_view page, std::string_view id)
{
    const std::string head = "<script type=\"application/json\" id=\"" + std::string(id) + "\">";
    const std::size_t start = page.find(head) + head.size();
    return page.substr(start, page.find("</script", start) - start);
}

TEST(Page, NoNameBreaksOut)
{
    const std::string plain = PageText({.title = "plain", .accountJson = "{\"items\": []}"});
    for (const std::string_view hostile : kHostileNames) {
        SCOPED_TRACE(hostile);
        const std::string name(hostile);
        Project project{.name = name, .sequences = {EmptySequence(name)}};
        project.sequences[0].tracks = {{.name = name,
                                        .items = {ItemAt(name, 0, kTicksPerSecond)},
                                        .transitions = {{.name = name}}}};
        const Difference difference{.sequence = name, .name = name, .before = name, .after = name};
        const std::string account =
            Json{{"items", {{{"clip", name}}}}}.dump(-1, ' ', false, Json::error_handler_t::ignore);
        const std::string page = PageText({.title = name,
                                           .accountJson = account,
                                           .first = &project,
                                           .second = &project,
                                           .differences = {&difference, 1}});
        for (const std::string_view part : {"<", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xFF"})
            EXPECT_EQ(Count(page, part), Count(plain, part)) << part;
        EXPECT_EQ(ParseJson(DataOf(page, "account")), ParseJson(account));
        EXPECT_TRUE(ParseJson(DataOf(page, "timelines")).is_object());
    }
}

TEST(Page, ReplacesWhatIsNoUtf8)
{
    const std::string page =
        PageText({.title = "a\xFF", .accountJson = "{\"input\": \"b\xC3 c\"}"});
    EXPECT_EQ(ParseJson(DataOf(page, "timelines"))["title"], "a\xEF\xBF\xBD");
    EXPECT_EQ(ParseJson(DataOf(page, "account"))["input"], "b\xEF\xBF\xBD c");
}

TEST(Page, ClipsAreRowsOfNumbers)
{
    constexpr Ticks kSecond = kTicksPerSecond;
    Item title = ItemAt("Titles", 6 * kSecond, 8 * kSecond);
    title.title = 0;
    title.enabled = false;
    Project project{.sequences = {EmptySequence("Cut")}, .titles = {{}}};
    project.sequences[0].tracks = {
        {.items = {ItemAt("A", 0, 4 * kSecond), title, ItemAt("A", 7 * kSecond, 9 * kSecond)},
         .transitions = {{.name = "Dissolve", .start = kSecond, .end = 2 * kSecond}}}};
    const Json timelines = ParseJson(DataOf(PageText({.first = &project}), "timelines"));
    EXPECT_EQ(timelines["texts"], Json({"", "A", "media.mov", "Titles", "Dissolve", "Cut"}));
    const Json& sequence = timelines["projects"][0]["sequences"][0];
    EXPECT_EQ(sequence["start"], 90000);
    EXPECT_EQ(sequence["tracks"][0]["id"], "V1");
    EXPECT_EQ(sequence["tracks"][0]["clips"],
              Json({0, 100, 1, 2, 1, 50, 50, 3, 2, 13, -25, 50, 1, 2, 1}));
    EXPECT_EQ(sequence["tracks"][0]["transitions"], Json({25, 25, 4}));
    EXPECT_EQ(DataOf(PageText({.first = &project}), "account"), "null");
}

TEST(Page, DifferencesHaveTheirClips)
{
    const Difference difference{.change = Change::Lost,
                                .subject = Subject::Item,
                                .sequence = "Cut",
                                .track = "V1",
                                .name = "A",
                                .frame = 7,
                                .first = {2, {1, 3}}};
    const Json timelines =
        ParseJson(DataOf(PageText({.differences = {&difference, 1}}), "timelines"));
    EXPECT_EQ(timelines["texts"], Json({"", "lost", "clip", "Cut", "V1", "A"}));
    EXPECT_EQ(timelines["differences"][0],
              Json({1, 2, 3, 0, 4, 5, 0, 0, 0, 0, 7, {2, 1, 3}, {-1, -1, -1}}));
}

// Damaged documents state any time.
TEST(Page, TimesAtTheirLimits)
{
    constexpr Ticks kLeast = std::numeric_limits<Ticks>::min();
    constexpr Ticks kMost = std::numeric_limits<Ticks>::max();
    Project project{.sequences = {EmptySequence("Cut", {1, false})}};
    project.sequences[0].tracks = {
        {.items = {ItemAt("A", kLeast, kMost), ItemAt("A", kLeast, kLeast)}}};
    const Json timelines = ParseJson(DataOf(PageText({.first = &project}), "timelines"));
    EXPECT_EQ(timelines["projects"][0]["sequences"][0]["tracks"][0]["clips"][0], kLeast);
}

TEST(Page, FeatureFilmIsSmallAndFast)
{
    const Project project = LargeProject(30000);
    const auto start = std::chrono::steady_clock::now();
    const std::string page = PageText({.first = &project});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_LT(page.size(), 2'000'000U);
}

} // namespace
} // namespace XPJ

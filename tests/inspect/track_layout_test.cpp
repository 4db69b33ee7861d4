#include "inspect/track_layout.h"

#include "inspect/timeline.h"

#include <limits>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace XPJ::Inspection {
namespace {

struct Span {
    Ticks start;
    Ticks end;
    std::string_view alignment = "center";
};

Track MakeTrack(const std::vector<Span>& items, const std::vector<Span>& transitions)
{
    Track track;
    for (const Span& span : items)
        track.items.push_back({.start = span.start, .end = span.end});
    for (const Span& span : transitions)
        track.transitions.push_back(
            {.start = span.start, .end = span.end, .alignment = std::string(span.alignment)});
    return track;
}

// "gap 0-10, item0 10-20, tran0 15/20/25": of a transition also the cut; rows with | between them,
// then the unplaced.
std::string Text(const TrackLayout& layout)
{
    std::string text;
    for (const Row& row : layout.rows) {
        text += &row == &layout.rows.front() ? "" : " | ";
        for (const Slot& slot : row) {
            text += &slot == &row.front() ? "" : ", ";
            if (slot.kind == SlotKind::Gap)
                text += fmt::format("gap {}-{}", slot.start, slot.end);
            else if (slot.kind == SlotKind::Item)
                text += fmt::format("item{} {}-{}", slot.index, slot.start, slot.end);
            else
                text += fmt::format("tran{} {}/{}/{}", slot.index, slot.start, slot.cut, slot.end);
        }
    }
    for (const std::size_t index : layout.unplacedItems)
        text += fmt::format(" -item{}", index);
    for (const std::size_t index : layout.unplacedTransitions)
        text += fmt::format(" -tran{}", index);
    return text;
}

TEST(TrackLayout, PutsEverythingInARow)
{
    constexpr Ticks kLast = std::numeric_limits<Ticks>::max();
    constexpr Ticks kFirst = std::numeric_limits<Ticks>::min();
    struct Case {
        const char* name;
        std::vector<Span> items;
        std::vector<Span> transitions;
        const char* expected;
    };
    const Case cases[] = {
        {"nothing", {}, {}, ""},
        {"gaps",
         {{10, 20}, {20, 30}, {50, 60}},
         {},
         "gap 0-10, item0 10-20, item1 20-30, gap 30-50, item2 50-60"},
        {"a cut", {{0, 20}, {20, 40}}, {{15, 25}}, "item0 0-20, tran0 15/20/25, item1 20-40"},
        // Edges of the track
        {"fade in at the head",
         {{0, 20}},
         {{0, 5, "start-black"}},
         "gap 0-0, tran0 0/0/5, item0 0-20"},
        {"fade in after a gap",
         {{10, 20}},
         {{10, 15, "start-black"}},
         "gap 0-10, tran0 10/10/15, item0 10-20"},
        {"fade out at the end",
         {{0, 20}},
         {{15, 20, "end-black"}},
         "item0 0-20, tran0 15/20/20, gap 20-20"},
        {"lasts beyond the end", {{0, 20}}, {{15, 25}}, "item0 0-20, tran0 15/20/25, gap 20-25"},
        {"starts before the head", {{0, 20}}, {{-5, 5}}, "gap 0-0, tran0 0/0/5, item0 0-20"},
        // Which of several edges
        {"the nearest",
         {{0, 20}, {20, 22}, {22, 40}},
         {{17, 28}},
         "item0 0-20, item1 20-22, tran0 20/22/28, item2 22-40"},
        {"start",
         {{0, 20}, {20, 22}, {22, 40}},
         {{20, 30, "start"}},
         "item0 0-20, tran0 20/20/22, item1 20-22, item2 22-40"},
        {"end",
         {{0, 20}, {20, 22}, {22, 40}},
         {{12, 22, "end"}},
         "item0 0-20, item1 20-22, tran0 20/22/22, item2 22-40"},
        // Neighbors
        {"longer than both",
         {{0, 20}, {20, 25}, {25, 40}},
         {{10, 30, "start"}},
         "item0 0-20, tran0 10/20/25, item1 20-25, item2 25-40"},
        {"two in one item",
         {{0, 20}, {20, 30}, {30, 40}},
         {{12, 28}, {22, 38}},
         "item0 0-20, tran0 12/20/28, item1 20-30, tran1 28/30/38, item2 30-40"},
        {"out and in again",
         {{0, 20}, {20, 40}},
         {{15, 20, "end-black"}, {20, 25, "start-black"}},
         "item0 0-20, tran0 15/20/20, gap 20-20, tran1 20/20/25, item1 20-40"},
        {"twice",
         {{0, 20}, {20, 40}},
         {{15, 25}, {15, 25}},
         "item0 0-20, tran0 15/20/20, gap 20-20, tran1 20/20/25, item1 20-40"},
        {"in an item", {{0, 20}, {20, 40}}, {{5, 15}}, "item0 0-20, item1 20-40 -tran0"},
        {"in a gap", {{10, 20}}, {{0, 5}}, "gap 0-10, item0 10-20 -tran0"},
        {"backwards", {{0, 20}, {20, 40}}, {{25, 15}}, "item0 0-20, item1 20-40 -tran0"},
        {"without items", {}, {{0, 5}}, " -tran0"},
        // Overlaps
        {"one",
         {{0, 20}, {10, 30}, {30, 40}},
         {{15, 25}},
         "item0 0-20, tran0 15/20/25, gap 20-30, item2 30-40 | gap 0-10, item1 10-30"},
        {"three deep",
         {{0, 20}, {5, 25}, {10, 12}, {15, 30}},
         {},
         "item0 0-20 | gap 0-5, item1 5-25 | gap 0-10, item2 10-12, gap 12-15, item3 15-30"},
        {"empty items",
         {{10, 10}, {10, 10}, {10, 20}},
         {},
         "gap 0-10, item0 10-10, item1 10-10, item2 10-20"},
        // Without a position
        {"no start", {{-1, 20}, {0, 10}}, {}, "item1 0-10 -item0"},
        {"backwards", {{20, 10}, {30, 40}}, {}, "gap 0-30, item1 30-40 -item0"},
        {"the limits",
         {{kFirst, kLast}, {0, kLast}},
         {{kFirst, kLast, "end"}},
         "item1 0-9223372036854775807, tran0 0/9223372036854775807/9223372036854775807, gap "
         "9223372036854775807-9223372036854775807 -item0"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        EXPECT_EQ(Text(LayOut(MakeTrack(test.items, test.transitions))), test.expected);
    }
}

// All at one position: a row each, in a time that does not grow with their square.
TEST(TrackLayout, OfManyOverlaps)
{
    constexpr std::size_t kItems = 20'000;
    const std::vector<Span> items(kItems, Span{0, 10});
    const TrackLayout layout = LayOut(MakeTrack(items, std::vector<Span>(kItems, Span{0, 10})));
    EXPECT_EQ(layout.rows.size(), kItems);
    EXPECT_EQ(layout.rows.back(), (Row{{.kind = SlotKind::Item, .index = kItems - 1, .end = 10}}));
}

} // namespace
} // namespace XPJ::Inspection

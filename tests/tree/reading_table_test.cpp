#include "project/grammar.h"
#include "tree/reading_table.h"
#include "xmeml/grammar.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace XPJ {
namespace {

const ReadingTable* const kGrammars[] = {&XmemlReadingTable(), &ProjectReadingTable()};

// A rule that nothing leads to is a misspelt one.
TEST(ReadingTable, EveryRuleIsReached)
{
    for (const ReadingTable* grammar : kGrammars) {
        std::set<std::uint16_t> reached = {grammar->Root().index};
        std::vector<std::uint16_t> open(reached.begin(), reached.end());
        while (!open.empty()) {
            const Rule& rule = grammar->RuleAt(open.back());
            open.pop_back();
            for (const Action& action : rule.actions)
                if (action.kind == Action::Child && reached.insert(action.rule).second)
                    open.push_back(action.rule);
        }
        for (const Rule& rule : grammar->Rules())
            EXPECT_TRUE(reached.contains(rule.index)) << rule.name;
    }
}

TEST(ReadingTable, TagsAreFoundAndTellApart)
{
    for (const ReadingTable* grammar : kGrammars) {
        for (std::size_t i = 0; i < grammar->Tags().size(); ++i)
            EXPECT_EQ(grammar->FindTag(grammar->Tags()[i].View()), i + 1);
        for (const char* tag : {"", "x", "XMEML", "veladata", "clipitem\n"})
            EXPECT_EQ(grammar->FindTag(tag), 0) << tag;
    }
}

TEST(ReadingTable, FaultyTablesAreRefused)
{
    const RuleRow kTwice[] = {{"root", "root", "", "", ""}, {"root", "x", "", "", ""}};
    EXPECT_THROW(ReadingTable{kTwice}, std::logic_error);
    const RuleRow kUnknown[] = {{"root", "root", "", "nobody", ""}};
    EXPECT_THROW(ReadingTable{kUnknown}, std::logic_error);
}

// One tag, two rules: the object at the top and the list entry inside it.
TEST(ReadingTable, SharedTagsMeanTheObjectAtTheTop)
{
    const ReadingTable& grammar = ProjectReadingTable();
    const struct {
        const char *rule, *tag, *child;
    } kCases[] = {
        {"VelaData", "Marker", "Marker"},
        {"VelaData", "Markers", "Markers"},
        {"MarkersList", "Marker", "MarkerListItem"},
        {"Markers", "Markers", "MarkersList"},
        {"TrackGroups", "TrackGroup", "TrackGroupsTrackGroup"},
        {"VideoTrackGroup", "TrackGroup", "TrackGroup"},
        {"VelaData", "AudioMixTrack", "MasterTrack"},
    };
    for (const auto& row : kCases) {
        const Action action = grammar.FindRule(row.rule).actions[grammar.FindTag(row.tag)];
        ASSERT_EQ(action.kind, Action::Child) << row.rule << " " << row.tag;
        EXPECT_EQ(grammar.RuleAt(action.rule).name, row.child);
    }
    for (const char* tag : {"Clip", "Component", "Node", "Track", "TrackGroup", "Properties"})
        EXPECT_EQ(grammar.FindRule("VelaData").actions[grammar.FindTag(tag)].kind, Action::Ignore)
            << tag;
}

} // namespace
} // namespace XPJ

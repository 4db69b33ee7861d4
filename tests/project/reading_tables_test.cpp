#include "project/classes.h"
#include "tree/reading_table.h"
#include "xmeml/elements.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace XPJ {
namespace {

const ReadingTable* const kTables[] = {&XmemlReadingTable(), &ProjectReadingTable()};

// A rule that nothing leads to is a misspelt one.
TEST(ReadingTables, EveryRuleIsReached)
{
    for (const ReadingTable* table : kTables) {
        std::set<std::uint16_t> reached = {table->Root().index};
        std::vector<std::uint16_t> open(reached.begin(), reached.end());
        while (!open.empty()) {
            const Rule& rule = table->RuleAt(open.back());
            open.pop_back();
            for (const Action& action : rule.actions)
                if (action.kind == Action::Child && reached.insert(action.rule).second)
                    open.push_back(action.rule);
        }
        for (const Rule& rule : table->Rules())
            EXPECT_TRUE(reached.contains(rule.index)) << rule.name;
    }
}

TEST(ReadingTables, TagsAreFoundAndDiffer)
{
    for (const ReadingTable* table : kTables) {
        for (std::size_t i = 0; i < table->Tags().size(); ++i)
            EXPECT_EQ(table->FindTag(table->Tags()[i].View()), i + 1);
        for (const char* tag : {"", "x", "XMEML", "veladata", "clipitem\n"})
            EXPECT_EQ(table->FindTag(tag), 0) << tag;
    }
}

TEST(ReadingTables, FaultyTablesAreRefused)
{
    const RuleSource kTwice[] = {{.name = "root", .tag = "root"}, {.name = "root", .tag = "x"}};
    EXPECT_THROW(ReadingTable{kTwice}, std::logic_error);
    const RuleSource kUnknown[] = {{.name = "root", .tag = "root", .children = {"nobody"}}};
    EXPECT_THROW(ReadingTable{kUnknown}, std::logic_error);
}

// One tag, two rules: the object at the top and the list entry inside it.
TEST(ReadingTables, SharedTagsMeanTheObjectAtTheTop)
{
    const ReadingTable& table = ProjectReadingTable();
    const struct {
        const char *rule, *tag, *child;
    } kCases[] = {
        {"VelaData", "Marker", "Marker"},
        {"VelaData", "Markers", "Markers"},
        {"part Markers", "Marker", "pair Marker"},
        {"Markers", "Markers", "part Markers"},
        {"part TrackGroups", "TrackGroup", "pair TrackGroup"},
        {"VideoTrackGroup", "TrackGroup", "part TrackGroup"},
        {"VelaData", "AudioMixTrack", "AudioMixTrack"},
    };
    for (const auto& row : kCases) {
        const Action action = table.FindRule(row.rule).actions[table.FindTag(row.tag)];
        ASSERT_EQ(action.kind, Action::Child) << row.rule << " " << row.tag;
        EXPECT_EQ(table.RuleAt(action.rule).name, row.child);
    }
    for (const char* tag : {"Clip", "Component", "Node", "Track", "TrackGroup", "Properties"})
        EXPECT_EQ(table.FindRule("VelaData").actions[table.FindTag(tag)].kind, Action::Ignore)
            << tag;
}

// Fields that a rule or one of its parts takes, each with the number of rules that take it.
void CountFields(const ReadingTable& table, const Rule& rule,
                 std::map<std::string_view, int>& fields)
{
    for (TagNumber tag = 1; tag < rule.actions.size(); ++tag) {
        const Action action = rule.actions[tag];
        if (action.kind == Action::Leaf || action.kind == Action::Reference)
            ++fields[table.TagName(tag).View()];
        if (action.kind == Action::Child && table.RuleAt(action.rule).nodeKind == NodeKind::Part)
            CountFields(table, table.RuleAt(action.rule), fields);
    }
}

// The parts of an object share its node, so a field of one must not hide one of another.
TEST(ReadingTables, PartsOfAnObjectHaveNoFieldInCommon)
{
    const std::set<std::string_view> kUnused = {"TrackIndex", "InputAudioChannelLayout",
                                                "OutputAudioChannelLayout"};
    std::set<std::string> shared;
    for (const ProjectClass& row : ProjectClasses()) {
        if (!row.use.isRead)
            continue;
        std::map<std::string_view, int> fields;
        CountFields(ProjectReadingTable(), ProjectReadingTable().FindRule(std::string(row.name)),
                    fields);
        for (const auto& [name, count] : fields)
            if (count > 1 && !kUnused.contains(name))
                shared.insert(std::string(row.name).append(" ").append(name));
    }
    // A document states it in one of the two locations.
    EXPECT_EQ(shared, std::set<std::string>{"Sequence BE.Sequence.IsMergedClip"});
}

} // namespace
} // namespace XPJ

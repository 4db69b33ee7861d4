#include "core/json.h"
#include "inspect/compare.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"
#include "support/rows.h"

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {
namespace {

TEST(Compare, FindsNothingBetweenFamilies)
{
    const Project xml = Timelines(DataText("edit.xml"));
    const Project project = Timelines(DataText("edit.vlproj"));
    EXPECT_EQ(DifferencesText(Compare(xml, project)), "No differences.\n");
    EXPECT_EQ(DifferencesText(Compare(project, xml)), "No differences.\n");
}

TEST(Compare, ListsWhatChanged)
{
    for (const auto& row : ReadRows("inspect/changes.txt", 4)) {
        SCOPED_TRACE(row[2]);
        const std::string text = DataText(row[0].c_str());
        const std::string changed = Replaced(text, row[1], row[2]);
        std::string expected = "sequence \"Cut\"\n  " + row[3] + "\n";
        int lines = 1;
        for (std::size_t at; (at = expected.find(" ;; ")) != expected.npos; ++lines)
            expected.replace(at, 4, "\n  ");
        const std::string found = DifferencesText(Compare(Timelines(text), Timelines(changed)));
        EXPECT_EQ(found.substr(0, expected.size()), expected) << found;
        EXPECT_EQ(found.find(std::to_string(lines) + " difference"), expected.size()) << found;
    }
}

// GUIDs and object numbers are no part of an edit.
TEST(Compare, OverlooksIdentities)
{
    std::string other = DataText("edit.vlproj");
    for (const char* id : {"cut-master", "medium", "rushes"})
        for (std::size_t at = other.find("\"" + std::string(id) + "\""); at != other.npos;
             at = other.find("\"" + std::string(id) + "\"", at + 1))
            other.insert(at + 1, "other-");
    EXPECT_TRUE(Compare(Timelines(DataText("edit.vlproj")), Timelines(other)).empty());
}

TEST(Compare, MatchesSequencesByNameAndOrder)
{
    const auto documentOf = [](const std::vector<std::string>& names) {
        std::string text = "<xmeml version=\"5\">";
        int number = 0;
        for (const std::string& name : names)
            text += "<sequence id=\"" + std::to_string(++number) + "\"><name>" + name +
                    "</name><media><video><track><clipitem><name>A</name><start>0</start><end>" +
                    std::to_string(name.size()) + "</end></clipitem></track></video></media>" +
                    "</sequence>";
        return Timelines(text + "</xmeml>");
    };
    EXPECT_TRUE(Compare(documentOf({"One", "Three"}), documentOf({"Three", "One"})).empty());
    EXPECT_EQ(DifferencesText(Compare(documentOf({"One", "Three"}), documentOf({"Three"}))),
              "sequence \"One\"\n  lost    00;00;00;00 sequence \"One\"\n"
              "1 difference: 1 lost\n");
    EXPECT_EQ(DifferencesText(Compare(documentOf({"One"}), documentOf({"Two"}))),
              "sequence \"One\"\n  changed 00;00;00;00 sequence \"One\": name One -> Two\n"
              "1 difference: 1 changed\n");
}

// A drawing marks the items that a difference is about.
TEST(Compare, StatesWhichItemsDiffer)
{
    const std::string text = DataText("edit.xml");
    const Project before = Timelines(text);
    // The second clip of V1 is renamed, and one comes before it.
    const std::string added = "<clipitem><name>New</name><start>160</start><end>170</end><in>0</in>"
                              "<out>10</out><file id=\"boat file\"/></clipitem>";
    std::string changed = Replaced(text, "<name>Boat, slow</name>", "<name>Boat</name>");
    changed = Replaced(changed, "<clipitem id=\"one\">", added + "<clipitem id=\"one\">");
    const std::vector<Difference> differences = Compare(before, Timelines(changed));
    ASSERT_EQ(differences.size(), 2U) << DifferencesText(differences);
    const DifferenceLocation renamed{0, {0, 1}};
    EXPECT_EQ(differences[0].first, renamed);
    EXPECT_EQ(differences[0].second, renamed);
    const DifferenceLocation none;
    const DifferenceLocation last{0, {0, 2}};
    EXPECT_EQ(differences[1].first, none);
    EXPECT_EQ(differences[1].second, last);
    // A marker is on its item, a track has none.
    const std::vector<Difference> ofMarker =
        Compare(before, Timelines(Replaced(text, "<name>Gull</name>", "<name>Tern</name>")));
    const DifferenceLocation first{0, {0, 0}};
    EXPECT_EQ(ofMarker.at(0).first, first);
    const std::vector<Difference> ofTrack =
        Compare(before, Timelines(Replaced(text, "<locked>TRUE</locked>", "")));
    const DifferenceLocation track{0, {1, kNothing}};
    EXPECT_EQ(ofTrack.at(0).second, track);
}

// A thousand clips that are one frame late and alike in all else stay pairs.
TEST(Compare, FollowsARippleThroughAllClips)
{
    const auto documentOf = [](int shift) {
        std::string text = "<xmeml version=\"5\"><sequence><name>Long</name><media><video><track>";
        for (int i = 0; i < 1000; ++i)
            text += "<clipitem><name>A</name><start>" + std::to_string(i * 10 + shift) +
                    "</start><end>" + std::to_string(i * 10 + 10 + shift) +
                    "</end><in>0</in><out>10</out></clipitem>";
        return Timelines(text + "</track></video></media></sequence></xmeml>");
    };
    const std::vector<Difference> differences = Compare(documentOf(0), documentOf(1));
    ASSERT_EQ(differences.size(), 1000U);
    for (const Difference& difference : differences)
        EXPECT_EQ(difference.change, Change::Moved);
    const nlohmann::json json = ParseJson(DifferencesJson(differences));
    EXPECT_EQ(json["equal"], false);
    EXPECT_EQ(json["differences"][999]["frame"], 9990);
    EXPECT_EQ(json["differences"][999]["property"], "start");
}

} // namespace
} // namespace XPJ::Inspection

#include "core/json.h"
#include "inspect/compare.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"
#include "support/import_text.h"
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

// What a project states in another way than a document is no difference; what it changes is one.
TEST(Compare, WhatEachFamilyStatesInItsOwnWay)
{
    const auto documentOf = [](const std::string& item, const std::string& marker) {
        const std::string rate = "<rate><timebase>25</timebase></rate>";
        return "<xmeml version=\"5\"><sequence id=\"s\"><name>Cut</name>" + rate + marker +
               "<media><video><format><samplecharacteristics><width>1920</width><height>1080"
               "</height><pixelaspectratio>square</pixelaspectratio></samplecharacteristics>"
               "</format><track>" +
               Replaced(item, "<name>A</name>",
                        "<name>A</name>" + rate +
                            "<start>0</start><end>25</end><in>0</in><out>25</out>") +
               "</track></video></media></sequence></xmeml>";
    };
    const auto fileOf = [](const std::string& source, const std::string& aspect) {
        return "<clipitem id=\"i\"><name>A</name><file id=\"f\"><name>a.mov</name>" + source +
               "<duration>100</duration><media><video><samplecharacteristics><width>720</width>"
               "<height>480</height><pixelaspectratio>" +
               aspect +
               "</pixelaspectratio></samplecharacteristics></video></media></file></clipitem>";
    };
    const std::string path = "<pathurl>file:///m/a.mov</pathurl>";
    const std::string clip = fileOf(path, "square");
    const std::string still =
        Replaced(Replaced(clip, "<file",
                          "<sequence><media><video><track><clipitem>"
                          "<stillframeoffset>12</stillframeoffset><file"),
                 "</file>", "</file></clipitem></track></video></media></sequence>");
    const auto markerOf = [](const std::string& comment) {
        return "<marker><name>M</name><comment>" + comment +
               "</comment><in>5</in><out>-1</out>"
               "</marker>";
    };
    const auto generatorOf = [](const std::string& id) {
        return "<generatoritem id=\"i\"><name>A</name><duration>100</duration><effect><name>" + id +
               "</name><effectid>" + id + "</effectid></effect></generatoritem>";
    };
    const struct {
        const char* name;
        std::string item;
        std::string marker;
    } rows[] = {
        {"the same pixels", clip, ""},
        {"a held frame", still, ""},
        {"pixels of another aspect", fileOf(path, "NTSC-601"), ""},
        {"a slug", generatorOf("Slug"), ""},
        {"a slug that is a file", fileOf("<mediaSource>Slug</mediaSource>", "square"), ""},
        {"bars that are a file", fileOf("<mediaSource>BarsAndTone</mediaSource>", "square"), ""},
        {"a chapter", clip, markerOf(" &lt;CHAPTER one")},
        {"an ordinary marker", clip, markerOf("one")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string document = documentOf(row.item, row.marker);
        const std::string project = ImportText(document).project;
        EXPECT_EQ(DifferencesText(Compare(Timelines(document), Timelines(project))),
                  "No differences.\n");
        EXPECT_EQ(DifferencesText(Compare(Timelines(project), Timelines(document))),
                  "No differences.\n");
    }
    // The item of the document holds a frame, that of the project plays.
    const std::vector<Difference> held = Compare(
        Timelines(documentOf(still, "")), Timelines(ImportText(documentOf(clip, "")).project));
    ASSERT_EQ(held.size(), 1U) << DifferencesText(held);
    EXPECT_EQ(held[0].before, "12 (00:00:00:12)");
    EXPECT_EQ(held[0].after, "none");
    // A chapter that becomes an ordinary marker differs.
    const std::vector<Difference> kinds =
        Compare(Timelines(documentOf(clip, markerOf(" &lt;CHAPTER one"))),
                Timelines(documentOf(clip, markerOf(" one"))));
    ASSERT_EQ(kinds.size(), 1U) << DifferencesText(kinds);
    EXPECT_EQ(kinds[0].kind, Property::MarkerKind);
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

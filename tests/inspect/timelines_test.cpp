#include "core/json.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"

#include "core/frame_rate.h"

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {
namespace {

std::string AllOnline(const Project& project)
{
    return TreeText(project, [](const std::string&) { return true; });
}

TEST(Timelines, IsTheSameFromBothFamilies)
{
    const std::string expected = DataText("edit.txt");
    EXPECT_EQ(AllOnline(Timelines(DataText("edit.xml"))), expected);
    // Where the families differ: the name, parameters of effects.
    std::string inProject = Replaced(expected, "xmeml 4  \"Harbour\"", "project 3");
    inProject = Replaced(inProject, "radius 6", "Blurriness 6");
    inProject = Replaced(inProject, "level 0.5", "Level 0.25");
    EXPECT_EQ(AllOnline(Timelines(DataText("edit.vlproj"))), inProject);
}

// The values of one item, with those that a difference between the families would show in.
TEST(Timelines, HoldsTimesAsTicks)
{
    for (const char* name : {"edit.xml", "edit.vlproj"}) {
        SCOPED_TRACE(name);
        const Project project = Timelines(DataText(name));
        ASSERT_EQ(project.sequences.size(), 1U);
        const Sequence& sequence = project.sequences[0];
        ASSERT_EQ(sequence.tracks.size(), 3U);
        const Item& slow = sequence.tracks[0].items.at(1);
        EXPECT_EQ(slow.start, 100 * kPalFrameTicks);
        EXPECT_EQ(slow.in, 100 * kPalFrameTicks);
        EXPECT_EQ(slow.out, 130 * kPalFrameTicks);
        EXPECT_EQ(slow.speed, 0.5);
        ASSERT_EQ(slow.effects.size(), 1U);
        const std::vector<Keyframe> keyframes{{200 * kPalFrameTicks, "6"},
                                              {220 * kPalFrameTicks, "12.5"}};
        EXPECT_EQ(slow.effects[0].parameters.at(0).keyframes, keyframes);
        EXPECT_EQ(sequence.links.size(), 1U);
    }
}

// Rates of items, sequences and their timecode in one document.
TEST(Timelines, CountsInTheRateOfEachThing)
{
    const Project project = Timelines(R"(<xmeml version="5"><sequence><name>Cut</name>
<rate><timebase>30</timebase><ntsc>TRUE</ntsc></rate>
<timecode><frame>107892</frame><displayformat>DF</displayformat></timecode>
<media><video><track><clipitem id="a"><name>A</name>
<rate><timebase>24</timebase><ntsc>FALSE</ntsc></rate>
<start>30</start><end>60</end><in>24</in><out>48</out></clipitem></track></video></media>
</sequence></xmeml>)");
    ASSERT_EQ(project.sequences.size(), 1U);
    const Sequence& sequence = project.sequences[0];
    EXPECT_EQ(sequence.format.Timecode(sequence.start), "01;00;00;00");
    const Item& item = sequence.tracks.at(0).items.at(0);
    EXPECT_EQ(item.start, 30 * kNtscFrameTicks);
    EXPECT_EQ(item.in, kTicksPerSecond);
    EXPECT_EQ(item.sourceFormat.Timecode(item.out), "00:00:02:00");
    EXPECT_EQ(sequence.format.Timecode(kNtscFrameTicks + 5), "00;00;00;01+5t");
}

// Other programs' documents, as they are written and as a conversion takes them.
TEST(Timelines, OfWhatADocumentMeans)
{
    const std::string text = Replaced(
        DataText("edit.xml"), "<name>Boat leaves</name>",
        "<name>Boat leaves</name><labels><label>Good Take</label><label2> </label2></labels>");
    const auto labelOf = [&text](DocumentReading reading) {
        const Project project = ReadTimelines(text, {}, reading).project;
        return project.sequences.at(0).tracks.at(0).items.at(0).label;
    };
    EXPECT_NE(labelOf(DocumentReading::ToTheLetter), "Good Take");
    EXPECT_EQ(labelOf(DocumentReading::AsMeant), "Good Take");
}

// A document may leave out `children`, and define a clip or a sequence by its name alone.
TEST(Timelines, ListsEveryEntry)
{
    const Project project = Timelines(R"(<xmeml version="5"><project><name>P</name>
<bin><name>B</name><children><clip id="c"><name>C</name></clip><clip id="d"/></children></bin>
<sequence id="s"><name>S</name></sequence></project></xmeml>)");
    std::string names;
    for (const Entry& entry : project.entries)
        names += entry.name + " ";
    EXPECT_EQ(names, "B C S ");
}

TEST(Timelines, IsWrittenAsJson)
{
    const std::string text = TreeJson(Timelines(DataText("edit.xml")),
                                      [](const std::string& path) { return path.empty(); });
    const nlohmann::json json = ParseJson(text);
    EXPECT_EQ(json["bins"][0]["entries"][0]["name"], "Boat");
    EXPECT_EQ(json["bins"][1]["sequence"], 0);
    EXPECT_EQ(json["media"][0]["offline"], true);
    const nlohmann::json& item = json["sequences"][0]["tracks"][0]["items"][1];
    EXPECT_EQ(item["start"]["frame"], 100);
    EXPECT_EQ(item["start"]["timecode"], "01:00:04:00");
    EXPECT_EQ(item["source"]["medium"], 0);
    EXPECT_EQ(item["link"], nullptr);
}

} // namespace
} // namespace XPJ::Inspection

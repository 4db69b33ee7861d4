#include "inspect/compare.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "inspect_fixture.h"

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

// One change to a document, and the lines that report it.
struct ChangeRow {
    const char* from;
    const char* to;
    std::vector<const char*> lines;
};

void ExpectDifferences(const char* document, const ChangeRow& row)
{
    SCOPED_TRACE(row.to);
    const std::string text = DataText(document);
    const std::string changed = Replaced(text, row.from, row.to);
    std::string expected = "sequence \"Cut\"\n";
    for (const char* line : row.lines)
        expected.append("  ").append(line).append("\n");
    const std::string found = DifferencesText(Compare(Timelines(text), Timelines(changed)));
    EXPECT_EQ(found.substr(0, expected.size()), expected) << found;
    EXPECT_EQ(found.find(std::to_string(row.lines.size()) + " difference"), expected.size())
        << found;
}

TEST(Compare, TellsWhatChangedInXml)
{
    const ChangeRow rows[] = {
        {"<start>200</start><end>225</end>",
         "<start>201</start><end>226</end>",
         {"moved   V2 01:00:08:00 clip \"Boat leaves\": start 200 (00:00:08:00) -> 201 "
          "(00:00:08:01)"}},
        {"<end>225</end>",
         "<end>224</end>",
         {"changed V2 01:00:08:00 clip \"Boat leaves\": end 225 (00:00:09:00) -> 224 "
          "(00:00:08:24)"}},
        {"<start>200</start><end>225</end><in>0</in>",
         "<start>202</start><end>225</end><in>2</in>",
         {"changed V2 01:00:08:00 clip \"Boat leaves\": start 200 (00:00:08:00) -> 202 "
          "(00:00:08:02)",
          "changed V2 01:00:08:00 clip \"Boat leaves\": in 0 (00:00:00:00) -> 2 "
          "(00:00:00:02)"}},
        {"<in>0</in><out>25</out>",
         "<in>1</in><out>26</out>",
         {"changed V2 01:00:08:00 clip \"Boat leaves\": in 0 (00:00:00:00) -> 1 (00:00:00:01)",
          "changed V2 01:00:08:00 clip \"Boat leaves\": out 25 (00:00:01:00) -> 26 "
          "(00:00:01:01)"}},
        {"<name>Boat, slow</name>",
         "<name>Boat</name>",
         {"changed V1 01:00:04:00 clip \"Boat, slow\": name Boat, slow -> Boat"}},
        {"<enabled>FALSE</enabled>\n\t\t\t\t\t\t\t\t<start>",
         "<start>",
         {"changed V2 01:00:08:00 clip \"Boat leaves\": enabled off -> on"}},
        {"<value>12.50</value>",
         "<value>13</value>",
         {"changed V1 01:00:04:00 clip \"Boat, slow\": Gaussian Blur: radius keyframes 2 "
          "keyframes, 12.5 at 00:00:08:20 -> 2 keyframes, 13 at 00:00:08:20"}},
        {"<value>0.5</value>",
         "<value>0.25</value>",
         {"changed A1 01:00:00:00 clip \"Boat leaves\": Volume: level 0.5 -> 0.25"}},
        {"<effectid>audiolevels</effectid>",
         "<effectid>other</effectid>",
         {"lost    A1 01:00:00:00 clip \"Boat leaves\": effect \"Volume\"",
          "added   A1 01:00:00:00 clip \"Boat leaves\": effect \"Audio Levels\""}},
        {"<link><linkclipref>one sound</linkclipref></link>",
         "",
         {"changed V1 01:00:00:00 clip \"Boat leaves\": links V1 at 0, A1 at 0 -> none",
          "changed A1 01:00:00:00 clip \"Boat leaves\": links V1 at 0, A1 at 0 -> none"}},
        {"<effectid>Cross Dissolve</effectid>",
         "<effectid>Edge Wipe</effectid>",
         {"changed V1 01:00:03:15 transition \"Cross Dissolve\": name Cross Dissolve -> Edge "
          "Wipe"}},
        {"<in>20</in><out>45</out>",
         "<in>21</in><out>46</out>",
         {"moved   01:00:00:20 marker \"Title in\": start 20 (00:00:00:20) -> 21 "
          "(00:00:00:21)"}},
        {"<name>Gull</name><in>30</in>",
         "<name>Gull</name><comment>two</comment><in>30</in>",
         {"changed V1 Boat leaves 00:00:01:05 marker \"Gull\": comment nothing -> two"}},
        {"<locked>TRUE</locked>", "", {"changed V2 01:00:00:00 track: locked on -> off"}},
        {"<frame>90000</frame>",
         "<frame>90001</frame>",
         {"changed 01:00:00:00 sequence \"Cut\": start timecode 90000 (01:00:00:00) -> 90001 "
          "(01:00:00:01)"}},
        {"<value>50</value>",
         "<value>100</value>",
         {"changed V1 01:00:04:00 clip \"Boat, slow\": in 100 (00:00:04:00) -> 200 (00:00:08:00)",
          "changed V1 01:00:04:00 clip \"Boat, slow\": out 130 (00:00:05:05) -> 260 "
          "(00:00:10:10)",
          "changed V1 01:00:04:00 clip \"Boat, slow\": speed 50% -> 100%"}},
    };
    for (const ChangeRow& row : rows)
        ExpectDifferences("edit.xml", row);
}

TEST(Compare, TellsWhatChangedInProjects)
{
    const ChangeRow rows[] = {
        {"<Start>2032128000000</Start>",
         "<Start>2032128000001</Start>",
         {"changed V2 01:00:08:00 clip \"Boat leaves\": start 200 (00:00:08:00) -> 200 "
          "(00:00:08:00+1t)"}},
        {"<TrackItem Index=\"0\" ObjectRef=\"20\"/>",
         "",
         {"lost    V2 01:00:08:00 clip \"Boat leaves\""}},
        {"<Alignment>101606400000</Alignment>",
         "<Alignment>0</Alignment>",
         {"changed V1 01:00:03:15 transition \"Cross Dissolve\": alignment center -> start"}},
        {"<SecondaryIndex>1<",
         "<SecondaryIndex>0<",
         {"changed A1 01:00:00:00 clip \"Boat leaves\": source channel 2 -> 1"}},
    };
    for (const ChangeRow& row : rows)
        ExpectDifferences("edit.vlproj", row);
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
    const nlohmann::json json = nlohmann::json::parse(DifferencesJson(differences));
    EXPECT_EQ(json["equal"], false);
    EXPECT_EQ(json["differences"][999]["frame"], 9990);
    EXPECT_EQ(json["differences"][999]["property"], "start");
}

} // namespace
} // namespace XPJ::Inspection

// Imports as a whole beyond what a case can show: stopping, growth, circles, unreadable files.
#include "import/collect.h"
#include "support/count_of.h"
#include "support/import_text.h"
#include "support/temp_folder.h"
#include "support/test_progress.h"
#include "xmeml/elements.h"

#include <filesystem>
#include <set>
#include <string_view>
#include <vector>

#include <sys/stat.h>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

Imported Import(const std::string& content, const ImportOptions& options = {},
                Progress* progress = nullptr)
{
    return ImportText("<xmeml version=\"5\">" + content + "</xmeml>", options, progress);
}

const std::string kRate = "<rate><timebase>25</timebase></rate>";

std::string Sequence(const std::string& id, const std::string& items)
{
    return "<sequence id=\"" + id + "\"><name>" + id + "</name>" + kRate + "<media><video><track>" +
           items + "</track></video></media></sequence>";
}

std::string Project(const std::string& children)
{
    return "<project><children>" + children + "</children></project>";
}

// True if an element of a tag can be in one of another tag, to any depth.
bool CanHold(std::string_view outer, std::string_view inner)
{
    std::set<std::string_view> seen{outer};
    std::vector<std::string_view> open{outer};
    while (!open.empty()) {
        const std::string_view tag = open.back();
        open.pop_back();
        for (const XmemlElement& element : XmemlElements())
            for (const XmemlField& field : element.fields)
                if (element.tag == tag && field.IsChild() && seen.insert(field.name.View()).second)
                    open.push_back(field.name.View());
    }
    return seen.contains(inner);
}

TEST(Import, PassesOverNothingThatIsCollected)
{
    EXPECT_TRUE(CanHold("parameter", "clip"));
    for (const Name& outer : kPassedOver)
        for (const std::string_view inner : {"clip", "file", "multiclip", "sequence"})
            EXPECT_FALSE(CanHold(outer.View(), inner)) << inner << " in " << outer.View();
}

TEST(Import, StopsAtEachCheck)
{
    const std::string bins = Project("<bin><name>A</name><children><bin><name>B</name></bin>"
                                     "</children></bin><marker/><bin><name>C</name></bin>");
    const auto job = [&bins](Progress& progress) {
        const Imported imported = Import(bins, {}, &progress);
        EXPECT_EQ(imported.project.empty(), imported.result != kSuccess);
        return imported.result;
    };
    EXPECT_GE(ExpectStopsAtEachCheck(job, kSuccess, kAborted).checks, 6u);
}

TEST(Import, UnknownVersionsAreReported)
{
    const struct {
        const char* version;
        const char* issue;
    } rows[] = {{"1", ""},
                {"5", ""},
                {"4.0", ""},
                {"0", " time=\"0\""},
                {"6", " time=\"6\""},
                {"x", " time=\"x\""},
                {"-4", " time=\"-4\""}};
    for (const auto& row : rows) {
        const std::string text =
            "<xmeml version=\"" + std::string(row.version) + "\">" + Project("") + "</xmeml>";
        const Imported imported = ImportText(text);
        EXPECT_EQ(imported.result, kSuccess);
        EXPECT_EQ(imported.issues,
                  *row.issue ? "UnrecognizedXMLVersion" + std::string(row.issue) + "\n" : "");
    }
}

TEST(Import, SequencesInACircleAreTranslatedOnce)
{
    constexpr std::size_t kCount = 1500; // deeper than a call stack
    std::string sequences;
    for (std::size_t i = 0; i < kCount; ++i)
        sequences += Sequence("s" + std::to_string(i),
                              "<clipitem id=\"c" + std::to_string(i) + "\">" + kRate +
                                  "<start>0</start><end>50</end><in>5</in><out>55</out>"
                                  "<sequence id=\"s" +
                                  std::to_string((i + 1) % kCount) + "\"/></clipitem>");
    const Imported imported = Import(Project(sequences));
    EXPECT_EQ(CountOf(imported.project, "<Sequence ObjectUID="), kCount);
    EXPECT_EQ(CountOf(imported.project, "<VideoClipTrackItem ObjectID="), kCount);
}

TEST(Import, ManyTitlesGrowFlat)
{
    constexpr std::size_t kCount = 500;
    std::string items;
    for (std::size_t i = 0; i < kCount; ++i)
        items += "<generatoritem id=\"g" + std::to_string(i) + "\">" + kRate + "<start>" +
                 std::to_string(50 * i) + "</start><end>" + std::to_string(50 * i + 50) +
                 "</end><in>0</in><out>50</out><effect><effectid>Text</effectid><parameter>"
                 "<parameterid>str</parameterid><value>x</value></parameter></effect>"
                 "</generatoritem>";
    for (const bool onMasters : {false, true}) {
        ImportOptions options;
        options.settings = {.convertTitles = true, .titlesAsMasterEffects = onMasters};
        const Imported imported = Import(Sequence("cut", items), options);
        EXPECT_EQ(CountOf(imported.project, "<VideoClipTrackItem ObjectID="), kCount);
        EXPECT_EQ(imported.issues, "");
    }
}

TEST(Import, LongTitlesAreWrittenInFull)
{
    std::string lines = "first";
    for (int i = 0; i < 100'000; ++i)
        lines += "&#13;l";
    const std::string item = "<generatoritem id=\"g\"><start>0</start><end>50</end><in>0</in>"
                             "<out>50</out><effect><effectid>Text</effectid><parameter>"
                             "<parameterid>str</parameterid><value>" +
                             lines + "</value></parameter></effect></generatoritem>";
    ImportOptions options;
    options.settings = {.convertTitles = true};
    // Two bytes a character, in base64.
    EXPECT_GT(Import(Sequence("cut", item), options).project.size(), 200'005u * 2 * 4 / 3);
}

// A media path in a document that was named without its folder is absolute all the same.
TEST(Import, MediaPathsAreAbsolute)
{
    const std::string item = "<clipitem id=\"a\"><start>0</start><end>10</end><in>0</in>"
                             "<out>10</out><file id=\"f\"><name>a.mov</name>"
                             "<pathurl>a.mov</pathurl>" +
                             kRate + "<media><video/></media></file></clipitem>";
    for (const std::string folder : {"", "sub/"}) {
        ImportOptions options;
        options.inputPath = folder + "cut.xml";
        EXPECT_NE(Import(Sequence("cut", item), options)
                      .project.find("<FilePath>" + std::filesystem::current_path().string() + "/" +
                                    folder + "a.mov</FilePath>"),
                  std::string::npos);
    }
}

// Opening a pipe would wait for ever.
TEST(Import, LooksThatAreNoFilesAreReported)
{
    const TempFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe.look").c_str(), 0600), 0);
    ImportOptions options;
    options.inputPath = folder / "cut.xml";
    const Imported imported =
        Import(Sequence("cut", "<clipitem id=\"a\"><start>0</start><end>10</end><in>0</in>"
                               "<out>10</out><file id=\"f\">" +
                                   kRate +
                                   "<media><video/></media></file><filter><effect><name>Warm"
                                   "</name><effectid>Gradiva</effectid><parameter><name>path"
                                   "</name><value>pipe.look</value></parameter></effect>"
                                   "</filter></clipitem>"),
               options);
    EXPECT_NE(imported.issues.find("MissingLookLUT"), std::string::npos) << imported.issues;
}

} // namespace
} // namespace XPJ

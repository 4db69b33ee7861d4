// The structure of whole files is checked in tests/readers/otio_test.py; here the rules that real
// documents rarely need.
#include "inspect/otio_json.h"

#include "core/json.h"
#include "inspect_fixture.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {
namespace {

using Json = nlohmann::json;

Json Parsed(const Project& project, std::size_t only = kNothing)
{
    return ParseJson(WriteOtio(project, only).json);
}

// Sequences that nest others, by number, on one video and one audio track each.
Project Nesting(const std::vector<std::vector<std::size_t>>& nested)
{
    Project project;
    for (const std::vector<std::size_t>& list : nested) {
        Sequence sequence{.name = std::to_string(project.sequences.size())};
        for (const MediaType kind : {MediaType::Video, MediaType::Audio}) {
            Track track{.kind = kind};
            for (const std::size_t number : list) {
                const Ticks start = static_cast<Ticks>(track.items.size()) * kNtscFrameTicks;
                track.items.push_back({.start = start,
                                       .end = start + kNtscFrameTicks,
                                       .source = SourceKind::Sequence,
                                       .sequence = number});
            }
            sequence.tracks.push_back(std::move(track));
        }
        project.sequences.push_back(std::move(sequence));
    }
    return project;
}

void AddToBrowser(Project& project, std::size_t sequence)
{
    project.entries.push_back({.kind = EntryKind::Sequence, .sequence = sequence});
}

// Of all objects with that schema, at any depth.
std::size_t CountOf(const std::string& text, const std::string& schema)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(schema); at != text.npos; at = text.find(schema, at + 1))
        ++count;
    return count;
}

TEST(OtioJson, NestsSequencesWithinLimits)
{
    struct Case {
        const char* name;
        std::vector<std::vector<std::size_t>> nested;
        std::size_t stacks; // also that of the timeline
        std::size_t clips;
    };
    // The first sequence nests the second twice, that one the third twice ...
    std::vector<std::vector<std::size_t>> twice;
    std::vector<std::vector<std::size_t>> chain;
    for (std::size_t i = 1; i < 500; ++i) {
        twice.push_back({i, i});
        chain.push_back({i});
    }
    twice.emplace_back();
    chain.emplace_back();
    const Case cases[] = {
        {"once", {{1}, {}}, 3, 0},
        {"in itself", {{0}}, 1, 2},
        {"in each other", {{1}, {0}}, 3, 2},
        {"a thousand times", {std::vector<std::size_t>(1000, 1), {}}, 1 + 2 * 16, 2 * (1000 - 16)},
        {"a chain", chain, 1 + 2 * 32, 2},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        Project project = Nesting(test.nested);
        AddToBrowser(project, 0);
        const std::string text = WriteOtio(project).json;
        EXPECT_TRUE(Json::accept(text));
        EXPECT_EQ(CountOf(text, "Stack.1"), test.stacks);
        EXPECT_EQ(CountOf(text, "Clip.2"), test.clips);
    }
    Project project = Nesting(twice);
    AddToBrowser(project, 0);
    EXPECT_LE(CountOf(WriteOtio(project).json, "Stack.1"), 2 * 16 * twice.size());
}

TEST(OtioJson, IsATimelineOrACollection)
{
    Project project = Nesting({{1}, {}, {}});
    AddToBrowser(project, 0);
    EXPECT_EQ(Parsed(project)["OTIO_SCHEMA"], "Timeline.1");
    AddToBrowser(project, 2);
    AddToBrowser(project, 0);
    const Json both = Parsed(project);
    EXPECT_EQ(both["OTIO_SCHEMA"], "SerializableCollection.1");
    ASSERT_EQ(both["children"].size(), 2U);
    EXPECT_EQ(both["children"][1]["name"], "2");
    EXPECT_EQ(WriteOtio(project).sequences, 2U);
    EXPECT_EQ(WriteOtio(project).items, 2U);
    EXPECT_EQ(Parsed(project, 1)["name"], "1");

    const Json clips = Parsed(Timelines(
        R"(<xmeml version="5"><clip id="c"><name>C</name><file id="f"><name>c.mov</name>
<pathurl>file://localhost/m/c.mov</pathurl><rate><timebase>25</timebase></rate>
<duration>50</duration></file></clip></xmeml>)"));
    ASSERT_EQ(clips["children"].size(), 1U);
    const Json& media = clips["children"][0]["media_references"]["DEFAULT_MEDIA"];
    EXPECT_EQ(media["target_url"], "file://localhost/m/c.mov");
    EXPECT_EQ(media["available_range"]["duration"]["value"], 50);
}

// What an item becomes of a track of one item, where the rest has its default.
Json ClipOf(const Item& item)
{
    Project project;
    project.mediaFiles = {{.name = "a.mov", .path = "a.mov"}, {.name = "no path"}};
    project.titles = {{{.text = "Ada", .font = "Arial", .size = 40, .color = "#ffffff"}}};
    project.sequences = {{.tracks = {{.items = {item}}}}};
    return Parsed(project, 0)["tracks"]["children"][0]["children"][0];
}

TEST(OtioJson, RefersToWhatAnItemShows)
{
    const Effect shown{.name = "Color Matte",
                       .isSource = true,
                       .parameters = {{.name = "color", .value = "1:0:0"}}};
    const std::pair<Item, const char*> cases[] = {
        {{}, "MissingReference.1"},
        {{.source = SourceKind::MediaFile, .mediaFile = 0}, "ExternalReference.1"},
        {{.source = SourceKind::MediaFile, .mediaFile = 1}, "MissingReference.1"},
        {{.source = SourceKind::MediaFile, .mediaFile = 1, .title = 0}, "GeneratorReference.1"},
        {{.source = SourceKind::MediaFile, .mediaFile = 0, .title = 0}, "ExternalReference.1"},
        {{.source = SourceKind::Generator, .effects = {shown}}, "GeneratorReference.1"},
        {{.source = SourceKind::Multiclip, .sourceName = "M"}, "MissingReference.1"},
    };
    for (const auto& [item, expected] : cases) {
        const Json reference = ClipOf(item)["media_references"]["DEFAULT_MEDIA"];
        EXPECT_EQ(reference["OTIO_SCHEMA"], expected) << reference;
    }
    // The generator is no effect on itself.
    const Json clip = ClipOf({.source = SourceKind::Generator, .effects = {shown}});
    const Json& generator = clip["media_references"]["DEFAULT_MEDIA"];
    EXPECT_EQ(generator["generator_kind"], "Color Matte");
    EXPECT_EQ(generator["parameters"]["color"], "1:0:0");
    EXPECT_TRUE(clip["effects"].empty());
}

TEST(OtioJson, StatesSpeedAsAnEffect)
{
    struct Case {
        Item item;
        const char* schema;
        double scalar;
    };
    const Case cases[] = {
        {{.speed = 2.5}, "LinearTimeWarp.1", 2.5},
        {{.reverse = true}, "LinearTimeWarp.1", -1},
        {{.speed = 0.5, .reverse = true}, "LinearTimeWarp.1", -0.5},
        {{.in = 5, .speed = 2, .held = 3}, "FreezeFrame.1", 0},
        {{.speedKeyframes = {{0, "100"}, {500, "100"}}}, "FreezeFrame.1", 0},
        {{.speedKeyframes = {{0, "100"}, {500, "900"}}}, "TimeEffect.1", 0},
    };
    EXPECT_TRUE(ClipOf({})["effects"].empty());
    for (const Case& test : cases) {
        const Json effects = ClipOf(test.item)["effects"];
        ASSERT_EQ(effects.size(), 1U) << effects;
        EXPECT_EQ(effects[0]["OTIO_SCHEMA"], test.schema);
        EXPECT_EQ(effects[0].value("time_scalar", 0.0), test.scalar);
    }
    const Json held = ClipOf({.in = 500 * kPalFrameTicks,
                              .held = 300 * kPalFrameTicks,
                              .sourceFormat = {.ticks = kPalFrameTicks}});
    EXPECT_EQ(held["source_range"]["start_time"]["value"], 300);
}

TEST(OtioJson, CountsInFramesOfTheRealRate)
{
    constexpr Ticks kFrame = 10594584000; // 23.976
    const Json clip = ClipOf({.end = 3 * kNtscFrameTicks,
                              .in = 100 * kFrame + kFrame / 4,
                              .sourceFormat = {.ticks = kFrame}});
    const Json& start = clip["source_range"]["start_time"];
    EXPECT_EQ(start["rate"], 24000.0 / 1001.0);
    EXPECT_EQ(start["value"], 100.25);
    const Json& duration = clip["source_range"]["duration"];
    EXPECT_EQ(duration["rate"], 30000.0 / 1001.0);
    EXPECT_EQ(duration["value"], 3);
}

TEST(OtioJson, KeepsWhatHasNoPosition)
{
    Project project;
    project.sequences = {{.tracks = {{.items = {{.name = "A", .start = -1, .end = -1}},
                                      .transitions = {{.name = "Wipe"}}}}}};
    const Json track = Parsed(project, 0)["tracks"]["children"][0];
    EXPECT_TRUE(track["children"].empty());
    const Json& metadata = track["metadata"]["vela_fcpxml"];
    EXPECT_EQ(metadata["unplaced_clips"][0]["name"], "A");
    EXPECT_EQ(metadata["unplaced_transitions"][0]["name"], "Wipe");
}

} // namespace
} // namespace XPJ::Inspection

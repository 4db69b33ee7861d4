// Writes the pages that page_browser_test.py looks at into a folder:
//   report.html      a conversion of a sample
//   hostile.html     names that are markup, script and ill-formed text
//   large.html       30,000 clips
//   comparison.html  a sample and an edit of it
//   plain.html       nothing happened, and no timelines
#include "core/json.h"
#include "frame/document_timelines.h"
#include "inspect/compare.h"
#include "page_documents.h"
#include "report/page/page.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace XPJ {
namespace {

using namespace Inspection;
using Json = nlohmann::ordered_json;

struct Happening {
    const char* kind;
    const char* outcome;
    const char* subject;
    const char* reason;
    const char* remedy;
};
constexpr Happening kHappenings[] = {
    {"effect.unsupported", "lost", "Sepia", "The project format has no counterpart of this effect.",
     "Render the clip before the export, or build the look anew."},
    {"effect.parameter", "changed", "Gaussian Blur: direction",
     "Both directions are blurred alike.", "Check the clip."},
    {"marker.color", "lost", "Marker \"Foley\"", "Markers of the format have no color.", ""},
    {"media.offline", "assumed", "A007_C003.mov",
     "The file states no duration; that of the clip is taken.", "Relink the media file."},
    {"item.disabled", "skipped", "Generator \"Slug\"", "Slugs are gaps.", ""},
    {"keyframe.interpolation", "changed", "Opacity", "Curves between keyframes become straight.",
     "Check fades that begin slowly."},
    {"time.rounded", "changed", "Audio start", "Times are whole frames: 240 samples are cut.", ""},
};

Json ItemJson(const Happening& happening)
{
    return {{"kind", happening.kind},       {"outcome", happening.outcome},
            {"severity", "warning"},        {"count", 1},
            {"subject", happening.subject}, {"reason", happening.reason},
            {"remedy", happening.remedy}};
}

// Something that happened to each clip of which `isHit` is true, in turn.
template <class IsHit>
Json AccountOf(const Project& project, IsHit isHit)
{
    Json items = Json::array();
    std::size_t number = 0;
    for (const Sequence& sequence : project.sequences)
        for (const Track& track : sequence.tracks)
            for (const Item& item : track.items)
                if (isHit(number++)) {
                    Json json = ItemJson(kHappenings[number % std::size(kHappenings)]);
                    json["sequence"] = sequence.name;
                    json["track"] = TrackText(track);
                    json["start"] = sequence.format.Timecode(sequence.start + item.start);
                    json["end"] = sequence.format.Timecode(sequence.start + item.end);
                    json["frame"] = sequence.format.Frames(item.start);
                    json["clip"] = item.name;
                    items.push_back(std::move(json));
                }
    return {{"tool", "xpjconvert 0.1.0"},
            {"date", "2026-11-22T13:00:00Z"},
            {"input", "/media/edit/night ferry.xml"},
            {"output", "/media/edit/night ferry.vlproj"},
            {"result", "success"},
            {"items", std::move(items)}};
}

std::string Dump(const Json& json)
{
    return JsonText(json);
}

Project Sample(const char* name)
{
    std::ifstream file(std::filesystem::path(VELA_SAMPLES) / name);
    std::ostringstream text;
    text << file.rdbuf();
    return ReadTimelines(text.str()).project;
}

std::string ReportPage()
{
    const Project project = Sample("film.xml");
    Json account = AccountOf(project, [](std::size_t number) { return number % 6 == 2; });
    Json& items = account["items"];
    const std::string& sequence = project.sequences[0].name;
    items.push_back(ItemJson({"track.name", "lost", "Dialog", "Tracks have no names.", ""}));
    items.back().update({{"sequence", sequence}, {"track", "A1"}});
    items.push_back(ItemJson({"sequence.label", "skipped", "Label", "Labels stay.", ""}));
    items.back().update({{"sequence", sequence}});
    items.push_back(ItemJson({"bin.view", "skipped", "Columns", "Views of bins stay.", ""}));
    items.back().update({{"path", "xmeml/project/children/bin"}, {"count", 12}});
    return PageText({.title = "night ferry.xml", .accountJson = Dump(account), .first = &project});
}

std::string HostilePage()
{
    Project project{.sequences = {EmptySequence(std::string(kHostileNames[0]))}};
    Track track;
    Ticks start = 0;
    for (const std::string_view name : kHostileNames) {
        track.items.push_back(ItemAt(std::string(name), start, start + 4 * kTicksPerSecond));
        start += 4 * kTicksPerSecond;
    }
    project.sequences[0].tracks = {track};
    Json account = AccountOf(project, [](std::size_t) { return true; });
    std::size_t number = 0;
    for (Json& item : account["items"]) {
        const std::string name(kHostileNames[number++ % std::size(kHostileNames)]);
        item.update({{"subject", name}, {"reason", name}, {"remedy", name}, {"path", name}});
        item["kind"] = "hostile." + std::to_string(number);
    }
    account["input"] = kHostileNames[0];
    return PageText(
        {.title = std::string(kHostileNames[0]), .accountJson = Dump(account), .first = &project});
}

std::string LargePage()
{
    const Project project = LargeProject(30000);
    const Json account = AccountOf(project, [](std::size_t number) { return number % 40 == 7; });
    return PageText({.title = "feature.xml", .accountJson = Dump(account), .first = &project});
}

std::string ComparisonPage()
{
    Project first = Sample("film.xml");
    for (Track& track : first.sequences[0].tracks)
        for (Item& item : track.items)
            item.link = kNothing;
    Project second = first;
    std::vector<Track>& tracks = second.sequences[0].tracks;
    std::vector<Item>& items = tracks[0].items;
    const Ticks frame = second.sequences[0].format.ticks;
    items.erase(items.begin() + 1);
    items[2].name += " v2";
    items[4].start += 12 * frame;
    items[4].end += 12 * frame;
    items[5].speed = 0.5;
    Item added = items.back();
    added.name = "New last shot";
    added.start = items.back().end + 20 * frame;
    added.end = added.start + 60 * frame;
    items.push_back(added);
    tracks[2].items[0].effects.push_back({.name = "Compressor"});
    tracks[3].locked = true;
    const std::vector<Difference> differences = Compare(first, second);
    return PageText({.title = "night ferry v7 and v8",
                     .first = &first,
                     .second = &second,
                     .differences = differences});
}

std::string PlainPage()
{
    return PageText({.title = "empty.xml", .accountJson = R"({"items": [], "result": "success"})"});
}

void Write(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
    std::printf("%s %zu\n", path.filename().c_str(), text.size());
}

} // namespace
} // namespace XPJ

int main(int, char** arguments)
{
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    XPJ::Write(folder / "report.html", XPJ::ReportPage());
    XPJ::Write(folder / "hostile.html", XPJ::HostilePage());
    XPJ::Write(folder / "large.html", XPJ::LargePage());
    XPJ::Write(folder / "comparison.html", XPJ::ComparisonPage());
    XPJ::Write(folder / "plain.html", XPJ::PlainPage());
}

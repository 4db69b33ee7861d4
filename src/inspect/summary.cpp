#include "inspect/summary.h"

#include "core/json.h"
#include "effects/values.h"
#include "inspect/columns.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

constexpr std::size_t kEffectLines = 12; // those used most

double FramesPerSecond(const Sequence& sequence)
{
    return static_cast<double>(kTicksPerSecond) / static_cast<double>(sequence.format.ticks);
}

std::string RateText(const Sequence& sequence)
{
    return NumberText(FramesPerSecond(sequence)) + (sequence.format.drop ? " drop" : "");
}

std::size_t CountTracks(const Sequence& sequence, MediaType kind)
{
    return static_cast<std::size_t>(std::ranges::count(sequence.tracks, kind, &Track::kind));
}

std::size_t CountItems(const Sequence& sequence)
{
    std::size_t count = 0;
    for (const Track& track : sequence.tracks)
        count += track.items.size();
    return count;
}

std::string TracksText(const Sequence& sequence)
{
    return fmt::format("{}V {}A", CountTracks(sequence, MediaType::Video),
                       CountTracks(sequence, MediaType::Audio));
}

// A line end in a name would end the row.
std::string Printable(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }, ' ');
    return text;
}

std::string MediaText(const Project& project, const IsOnline& isOnline)
{
    const auto isMissing = [&isOnline](const MediaFile& file) {
        return isOnline && !file.path.empty() && !isOnline(file.path);
    };
    const auto missing = std::ranges::count_if(project.mediaFiles, isMissing);
    const std::size_t count = project.mediaFiles.size();
    return fmt::format("{} media file{}, {} offline\n", count, count == 1 ? "" : "s", missing);
}

// How often each is used, those used most first.
std::vector<std::pair<std::string, std::size_t>> CountEffects(const Project& project)
{
    std::map<std::string, std::size_t> counts;
    for (const Sequence& sequence : project.sequences)
        for (const Track& track : sequence.tracks) {
            for (const Item& item : track.items)
                for (const Effect& effect : item.effects)
                    ++counts[effect.name];
            for (const Transition& transition : track.transitions)
                ++counts[transition.name];
        }
    std::vector<std::pair<std::string, std::size_t>> sorted(counts.begin(), counts.end());
    std::ranges::stable_sort(sorted, std::ranges::greater{},
                             &std::pair<std::string, std::size_t>::second);
    return sorted;
}

std::string EffectsText(const Project& project)
{
    const auto effects = CountEffects(project);
    if (effects.empty())
        return "no effects\n";
    std::string text = "effects and transitions\n";
    const std::size_t shown = std::min(effects.size(), kEffectLines);
    for (std::size_t i = 0; i < shown; ++i)
        text += fmt::format("  {:6}  {}\n", effects[i].second, Printable(effects[i].first));
    if (effects.size() > shown)
        text += fmt::format("          and {} more\n", effects.size() - shown);
    return text;
}

} // namespace

std::string SequenceListText(const Project& project)
{
    std::vector<Row> rows = {{"", "Name", "Length", "Rate", "Frame", "Tracks", "Clips", "Id"}};
    for (const Sequence& sequence : project.sequences)
        rows.push_back(
            {std::to_string(rows.size()), Printable(sequence.name),
             sequence.format.Timecode(sequence.Length()), RateText(sequence),
             sequence.width > 0 ? fmt::format("{}x{}", sequence.width, sequence.height) : "",
             TracksText(sequence), std::to_string(CountItems(sequence)), Printable(sequence.id)});
    return rows.size() == 1 ? "no sequences\n" : ColumnsText(rows);
}

std::string SequenceListJson(const Project& project)
{
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const Sequence& sequence : project.sequences)
        list.push_back({{"number", list.size() + 1},
                        {"name", sequence.name},
                        {"id", sequence.id},
                        {"length", sequence.format.Timecode(sequence.Length())},
                        {"frames", sequence.format.Frames(sequence.Length())},
                        {"rate", FramesPerSecond(sequence)},
                        {"dropFrame", sequence.format.drop},
                        {"width", sequence.width},
                        {"height", sequence.height},
                        {"videoTracks", CountTracks(sequence, MediaType::Video)},
                        {"audioTracks", CountTracks(sequence, MediaType::Audio)},
                        {"clips", CountItems(sequence)}});
    return JsonText(list, 2) + '\n';
}

std::string SummaryText(const Project& project, const IsOnline& isOnline)
{
    std::string text =
        fmt::format("{} {}  {}\n", project.family == Family::Xmeml ? "xmeml" : "project",
                    Printable(project.version), Printable(project.name));
    text += SequenceListText(project);
    text += MediaText(project, isOnline);
    text += EffectsText(project);
    return text;
}

} // namespace XPJ::Inspection

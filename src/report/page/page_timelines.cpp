#include "report/page/page_timelines.h"

#include "core/frame_rate.h"
#include "core/json.h"
#include "core/text_hash.h"

#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

namespace XPJ {

namespace {

using namespace Inspection;
using Json = nlohmann::ordered_json;

constexpr int kTitleKind = 5;
constexpr int kSwitchedOff = 8;

int KindOf(const Item& item)
{
    const int kind = item.title == kNothing ? static_cast<int>(item.source) : kTitleKind;
    return item.enabled ? kind : kind + kSwitchedOff;
}

// Each text once. The texts outlive the table.
class TextTable {
public:
    std::size_t IndexOf(std::string_view text)
    {
        const auto [entry, isNew] = indices_.emplace(text, indices_.size());
        if (isNew)
            texts_.push_back(text);
        return entry->second;
    }
    Json Take() { return std::move(texts_); }

private:
    Json texts_ = Json::array();
    TextMap<std::size_t> indices_;
};

// The gap from the end before and the length of each range that is added, in frames.
class RangeList {
public:
    explicit RangeList(const TimecodeFormat& format) : format_(format) {}

    void Add(Ticks start, Ticks end)
    {
        const std::int64_t first = format_.Frames(start);
        const std::int64_t last = format_.Frames(end);
        numbers_.push_back(SubtractTicks(first, end_));
        numbers_.push_back(SubtractTicks(last, first));
        end_ = last;
    }
    void Add(std::size_t number) { numbers_.push_back(number); }
    Json Take() { return std::move(numbers_); }

private:
    const TimecodeFormat& format_;
    std::int64_t end_ = 0;
    Json numbers_ = Json::array();
};

class TimelinesBuilder {
public:
    Json Build(std::string_view title, std::span<const Project* const> projects,
               std::span<const Difference> differences)
    {
        texts_.IndexOf("");
        Json projectList = Json::array();
        for (const Project* project : projects)
            projectList.push_back(ProjectJson(*project));
        Json differenceList = Json::array();
        for (const Difference& difference : differences)
            differenceList.push_back(DifferenceJson(difference));
        return {{"title", title},
                {"texts", texts_.Take()},
                {"projects", std::move(projectList)},
                {"differences", std::move(differenceList)}};
    }

private:
    Json ProjectJson(const Project& project)
    {
        Json sequences = Json::array();
        for (const Sequence& sequence : project.sequences)
            sequences.push_back(SequenceJson(sequence));
        return {{"name", texts_.IndexOf(project.name)}, {"sequences", std::move(sequences)}};
    }

    Json SequenceJson(const Sequence& sequence)
    {
        const TimecodeFormat& format = sequence.format;
        Json tracks = Json::array();
        for (const Track& track : sequence.tracks)
            tracks.push_back({{"id", TrackText(track)},
                              {"name", texts_.IndexOf(track.name)},
                              {"enabled", track.enabled},
                              {"locked", track.locked},
                              {"clips", ClipsJson(track, format)},
                              {"transitions", TransitionsJson(track, format)}});
        return {{"name", texts_.IndexOf(sequence.name)},
                {"frame", static_cast<double>(format.ticks) / kTicksPerSecond},
                {"base", TimecodeBaseOf(format.ticks, 0).base},
                {"drop", format.drop},
                {"start", format.Frames(sequence.start)},
                {"tracks", std::move(tracks)}};
    }

    Json ClipsJson(const Track& track, const TimecodeFormat& format)
    {
        RangeList clips(format);
        for (const Item& item : track.items) {
            clips.Add(item.start, item.end);
            clips.Add(texts_.IndexOf(item.name));
            clips.Add(texts_.IndexOf(item.sourceName));
            clips.Add(static_cast<std::size_t>(KindOf(item)));
        }
        return clips.Take();
    }

    Json TransitionsJson(const Track& track, const TimecodeFormat& format)
    {
        RangeList transitions(format);
        for (const Transition& transition : track.transitions) {
            transitions.Add(transition.start, transition.end);
            transitions.Add(texts_.IndexOf(transition.name));
        }
        return transitions.Take();
    }

    Json DifferenceJson(const Difference& difference)
    {
        return {texts_.IndexOf(ChangeText(difference.change)),
                texts_.IndexOf(SubjectText(difference.subject)),
                texts_.IndexOf(difference.sequence),
                texts_.IndexOf(difference.bin),
                texts_.IndexOf(difference.track),
                texts_.IndexOf(difference.name),
                texts_.IndexOf(difference.timecode),
                texts_.IndexOf(difference.property),
                texts_.IndexOf(difference.before),
                texts_.IndexOf(difference.after),
                difference.frame,
                LocationJson(difference.first),
                LocationJson(difference.second)};
    }

    static Json LocationJson(const DifferenceLocation& location)
    {
        const auto indexOf = [](std::size_t index) {
            return index == kNothing ? -1 : static_cast<std::int64_t>(index);
        };
        return {indexOf(location.sequence), indexOf(location.item.track),
                indexOf(location.item.item)};
    }

    TextTable texts_;
};

} // namespace

std::string PageTimelinesJson(std::string_view title,
                              std::span<const Inspection::Project* const> projects,
                              std::span<const Inspection::Difference> differences)
{
    return JsonText(TimelinesBuilder().Build(title, projects, differences));
}

} // namespace XPJ

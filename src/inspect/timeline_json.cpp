#include "inspect/timeline_json.h"

#include "core/json.h"

#include <cstdint>
#include <utility>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json)
{
    return JsonText(json, 2) + '\n';
}

Json TimeJson(const TimecodeFormat& format, Ticks time, std::string timecode)
{
    return {{"frame", format.Frames(time)}, {"timecode", std::move(timecode)}, {"ticks", time}};
}

// `first` is the timecode of the first frame of what the time counts from.
Json PointJson(const TimecodeFormat& format, Ticks time, Ticks first)
{
    return TimeJson(format, time, format.Clock(AddTicks(first, time)));
}

Json LengthJson(const TimecodeFormat& format, Ticks length)
{
    return TimeJson(format, length, format.Timecode(length));
}

Json KeyframesJson(const std::vector<Keyframe>& keyframes)
{
    Json list = Json::array();
    for (const Keyframe& keyframe : keyframes)
        list.push_back({{"ticks", keyframe.time}, {"value", keyframe.value}});
    return list;
}

Json ParametersJson(const std::vector<Parameter>& parameters)
{
    Json list = Json::array();
    for (const Parameter& parameter : parameters) {
        Json entry{{"name", parameter.name}, {"value", parameter.value}};
        if (!parameter.keyframes.empty())
            entry["keyframes"] = KeyframesJson(parameter.keyframes);
        list.push_back(std::move(entry));
    }
    return list;
}

Json MarkersJson(const std::vector<Marker>& markers, const TimecodeFormat& format, Ticks at)
{
    Json list = Json::array();
    for (const Marker& marker : markers)
        list.push_back({{"name", marker.name},
                        {"comment", marker.comment},
                        {"start", PointJson(format, marker.start, at)},
                        {"duration", LengthJson(format, marker.duration)}});
    return list;
}

// An index, null for nothing.
Json IndexJson(std::size_t index)
{
    return index == kNothing ? Json() : Json(index);
}

class TreeBuilder {
public:
    TreeBuilder(const Project& project, const IsOnline& isOnline)
        : project_(project), isOnline_(isOnline)
    {
    }

    Json Build() const
    {
        Json media = Json::array();
        for (const MediaFile& file : project_.mediaFiles)
            media.push_back(MediaFileJson(file));
        Json titles = Json::array();
        for (const std::vector<TitleText>& texts : project_.titles)
            titles.push_back(TitleJson(texts));
        Json sequences = Json::array();
        for (const Sequence& sequence : project_.sequences)
            sequences.push_back(SequenceJson(sequence));
        return {{"family", project_.family == Family::Xmeml ? "xmeml" : "project"},
                {"version", project_.version},
                {"name", project_.name},
                {"bins", EntriesJson()},
                {"media", std::move(media)},
                {"titles", std::move(titles)},
                {"sequences", std::move(sequences)}};
    }

private:
    // The lists on the way down to the entry at hand; a list doesn't grow while one below it does.
    Json EntriesJson() const
    {
        Json root = Json::array();
        std::vector<Json*> lists{&root};
        for (const Entry& entry : project_.entries) {
            lists.resize(static_cast<std::size_t>(entry.depth) + 1);
            Json& list = *lists.back();
            list.push_back(EntryJson(entry));
            if (entry.kind == EntryKind::Bin)
                lists.push_back(&list.back()["entries"]);
        }
        return root;
    }

    Json EntryJson(const Entry& entry) const
    {
        constexpr const char* kKinds[] = {"bin", "clip", "sequence"};
        Json json{{"kind", kKinds[static_cast<std::size_t>(entry.kind)]},
                  {"name", entry.name},
                  {"label", entry.label}};
        if (entry.kind == EntryKind::Bin)
            json["entries"] = Json::array();
        if (entry.mediaFile != kNothing) {
            json["medium"] = entry.mediaFile;
            json["markers"] =
                MarkersJson(entry.markers, project_.mediaFiles[entry.mediaFile].format, 0);
        }
        if (entry.sequence != kNothing)
            json["sequence"] = entry.sequence;
        return json;
    }

    Json MediaFileJson(const MediaFile& file) const
    {
        Json json{{"name", file.name},
                  {"path", file.path},
                  {"start", PointJson(file.format, file.start, 0)}};
        if (isOnline_ && !file.path.empty())
            json["offline"] = !isOnline_(file.path);
        return json;
    }

    static Json TitleJson(const std::vector<TitleText>& texts)
    {
        Json list = Json::array();
        for (const TitleText& text : texts)
            list.push_back({{"text", text.text},
                            {"font", text.font},
                            {"size", text.size},
                            {"color", text.color}});
        return list;
    }

    Json SequenceJson(const Sequence& sequence) const
    {
        Json tracks = Json::array();
        for (const Track& track : sequence.tracks)
            tracks.push_back(TrackJson(sequence, track));
        Json links = Json::array();
        for (const auto& group : sequence.links) {
            Json members = Json::array();
            for (const ItemIndex& index : group)
                members.push_back(
                    {{"track", TrackText(sequence.tracks[index.track])}, {"item", index.item}});
            links.push_back(std::move(members));
        }
        return {{"name", sequence.name},
                {"frameTicks", sequence.format.ticks},
                {"dropFrame", sequence.format.drop},
                {"start", PointJson(sequence.format, sequence.start, 0)},
                {"length", LengthJson(sequence.format, sequence.Length())},
                {"width", sequence.width},
                {"height", sequence.height},
                {"markers", MarkersJson(sequence.markers, sequence.format, sequence.start)},
                {"tracks", std::move(tracks)},
                {"links", std::move(links)}};
    }

    Json TrackJson(const Sequence& sequence, const Track& track) const
    {
        Json items = Json::array();
        for (const Item& item : track.items)
            items.push_back(ItemJson(sequence, item));
        Json transitions = Json::array();
        for (const Transition& transition : track.transitions)
            transitions.push_back(
                {{"name", transition.name},
                 {"start", PointJson(sequence.format, transition.start, sequence.start)},
                 {"end", PointJson(sequence.format, transition.end, sequence.start)},
                 {"alignment", transition.alignment},
                 {"parameters", ParametersJson(transition.parameters)}});
        return {{"track", TrackText(track)}, {"name", track.name},
                {"enabled", track.enabled},  {"locked", track.locked},
                {"items", std::move(items)}, {"transitions", std::move(transitions)}};
    }

    Json ItemJson(const Sequence& sequence, const Item& item) const
    {
        const Ticks first =
            item.mediaFile == kNothing ? 0 : project_.mediaFiles[item.mediaFile].start;
        Json effects = Json::array();
        for (const Effect& effect : item.effects)
            effects.push_back({{"name", effect.name},
                               {"enabled", effect.enabled},
                               {"parameters", ParametersJson(effect.parameters)}});
        return {{"name", item.name},
                {"start", PointJson(sequence.format, item.start, sequence.start)},
                {"end", PointJson(sequence.format, item.end, sequence.start)},
                {"in", PointJson(item.sourceFormat, item.in, first)},
                {"out", PointJson(item.sourceFormat, item.out, first)},
                {"speed", item.speed},
                {"reverse", item.reverse},
                {"frameBlending", item.frameBlending},
                {"held", item.held ? PointJson(item.sourceFormat, *item.held, first) : Json()},
                {"speedKeyframes", KeyframesJson(item.speedKeyframes)},
                {"enabled", item.enabled},
                {"label", item.label},
                {"compositeMode", item.compositeMode},
                {"source",
                 {{"kind", SourceText(item.source)},
                  {"name", item.sourceName},
                  {"medium", IndexJson(item.mediaFile)},
                  {"channel", item.channel > 0 ? Json(item.channel) : Json()}}},
                {"title", IndexJson(item.title)},
                {"effects", std::move(effects)},
                {"markers", MarkersJson(item.markers, item.sourceFormat, first)},
                {"link", IndexJson(item.link)}};
    }

    const Project& project_;
    const IsOnline& isOnline_;
};

} // namespace

std::string TreeJson(const Project& project, const IsOnline& isOnline)
{
    return Dump(TreeBuilder(project, isOnline).Build());
}

std::string DifferencesJson(const std::vector<Difference>& differences)
{
    Json list = Json::array();
    for (const Difference& difference : differences)
        list.push_back({{"change", ChangeText(difference.change)},
                        {"subject", SubjectText(difference.subject)},
                        {"sequence", difference.sequence},
                        {"bin", difference.bin},
                        {"track", difference.track},
                        {"name", difference.name},
                        {"frame", difference.frame},
                        {"timecode", difference.timecode},
                        {"property", difference.property},
                        {"before", difference.before},
                        {"after", difference.after}});
    const Json json{{"equal", differences.empty()}, {"differences", std::move(list)}};
    return Dump(json);
}

} // namespace XPJ::Inspection

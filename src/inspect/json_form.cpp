#include "inspect/json_form.h"

#include <cstdint>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json)
{
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

// `at` is the timecode of the first frame of what the time counts in.
Json TimeJson(const FrameForm& form, Ticks time, Ticks at)
{
    return {{"frame", form.Frames(time)},
            {"timecode", form.Timecode(AddTicks(at, time))},
            {"ticks", time}};
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

Json MarkersJson(const std::vector<Marker>& markers, const FrameForm& form, Ticks at)
{
    Json list = Json::array();
    for (const Marker& marker : markers)
        list.push_back({{"name", marker.name},
                        {"comment", marker.comment},
                        {"start", TimeJson(form, marker.start, at)},
                        {"duration", TimeJson(form, marker.duration, 0)}});
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
        for (const Medium& medium : project_.media)
            media.push_back(MediumJson(medium));
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
        if (entry.medium != kNothing) {
            json["medium"] = entry.medium;
            json["markers"] = MarkersJson(entry.markers, project_.media[entry.medium].form, 0);
        }
        if (entry.sequence != kNothing)
            json["sequence"] = entry.sequence;
        return json;
    }

    Json MediumJson(const Medium& medium) const
    {
        Json json{{"name", medium.name},
                  {"path", medium.path},
                  {"start", TimeJson(medium.form, medium.start, 0)}};
        if (isOnline_ && !medium.path.empty())
            json["offline"] = !isOnline_(medium.path);
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
            for (const ItemPlace& place : group)
                members.push_back(
                    {{"track", TrackText(sequence.tracks[place.track])}, {"item", place.item}});
            links.push_back(std::move(members));
        }
        return {{"name", sequence.name},
                {"frameTicks", sequence.form.ticks},
                {"dropFrame", sequence.form.drop},
                {"start", TimeJson(sequence.form, sequence.start, 0)},
                {"length", TimeJson(sequence.form, sequence.Length(), 0)},
                {"width", sequence.width},
                {"height", sequence.height},
                {"markers", MarkersJson(sequence.markers, sequence.form, sequence.start)},
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
                 {"start", TimeJson(sequence.form, transition.start, sequence.start)},
                 {"end", TimeJson(sequence.form, transition.end, sequence.start)},
                 {"alignment", transition.alignment},
                 {"parameters", ParametersJson(transition.parameters)}});
        return {{"track", TrackText(track)}, {"name", track.name},
                {"enabled", track.enabled},  {"locked", track.locked},
                {"items", std::move(items)}, {"transitions", std::move(transitions)}};
    }

    Json ItemJson(const Sequence& sequence, const Item& item) const
    {
        const Ticks first = item.medium == kNothing ? 0 : project_.media[item.medium].start;
        Json effects = Json::array();
        for (const Effect& effect : item.effects)
            effects.push_back({{"name", effect.name},
                               {"enabled", effect.enabled},
                               {"parameters", ParametersJson(effect.parameters)}});
        return {{"name", item.name},
                {"start", TimeJson(sequence.form, item.start, sequence.start)},
                {"end", TimeJson(sequence.form, item.end, sequence.start)},
                {"in", TimeJson(item.sourceForm, item.in, first)},
                {"out", TimeJson(item.sourceForm, item.out, first)},
                {"speed", item.speed},
                {"reverse", item.reverse},
                {"frameBlending", item.frameBlending},
                {"speedKeyframes", KeyframesJson(item.speedKeyframes)},
                {"enabled", item.enabled},
                {"label", item.label},
                {"compositeMode", item.compositeMode},
                {"source",
                 {{"kind", SourceText(item.source)},
                  {"name", item.sourceName},
                  {"medium", IndexJson(item.medium)},
                  {"channel", item.channel > 0 ? Json(item.channel) : Json()}}},
                {"title", IndexJson(item.title)},
                {"effects", std::move(effects)},
                {"markers", MarkersJson(item.markers, item.sourceForm, first)},
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

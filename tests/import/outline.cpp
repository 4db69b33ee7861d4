#include "import/outline.h"

#include "core/base64.h"
#include "import/outline_parts.h"

#include <limits>
#include <set>

#include <fmt/format.h>

namespace XPJ {
namespace {

// What follows `key` up to one of `ends`, wherever it is found, joined by commas.
std::string FieldsOf(std::string_view json, std::string_view key, std::string_view ends)
{
    std::string text;
    for (std::size_t at = json.find(key); at != json.npos; at = json.find(key, at)) {
        at += key.size();
        text.append(text.empty() ? "" : ",");
        text.append(json, at, std::min(json.find_first_of(ends, at), json.size()) - at);
    }
    return text;
}

class Timelines {
public:
    explicit Timelines(std::string_view text) : project_(text) {}

    std::string Text()
    {
        VisitItems(project_, [this](const Element& item, const Element&, std::size_t depth) {
            const std::string name = project_.Value(item, "Name");
            if (item.name == "BinProjectItem")
                return AddLine(depth, fmt::format("Bin \"{}\"", name));
            const Element& master = project_.At(item, "MasterClip");
            AddLine(depth, fmt::format("Item \"{}\" is \"{}\"", name, master.Child("Name").text));
            AddSequence(SequenceOfMaster(project_, master), depth + 1);
        });
        return std::move(text_);
    }

private:
    void AddLine(std::size_t depth, const std::string& line)
    {
        text_ += std::string(2 * depth, ' ') + line + "\n";
    }

    void AddSequence(const Element& sequence, std::size_t depth)
    {
        if (sequence.IsNone() || !seen_.insert(&sequence).second)
            return;
        const auto [video, audio, frameTicks] = GroupsOf(project_, sequence);
        const auto value = [this](const Element& object, std::string_view path) {
            return project_.Value(object, path);
        };
        AddLine(depth, fmt::format("Sequence {} \"{}\": frame {}, sample {}, {}, {}, field {}",
                                   sequence.Child("ID").text, sequence.Child("Name").text,
                                   value(video, "FrameRate"), value(audio, "FrameRate"),
                                   value(video, "FrameRect"), value(video, "PixelAspectRatio"),
                                   value(video, "FieldType")));
        if (const std::string zero = value(sequence, "MZ.ZeroPoint"); !zero.empty())
            AddLine(depth, fmt::format("zero {}, display {}", zero,
                                       value(sequence, "MZ.Sequence.VideoTimeDisplayFormat")));
        AddTracks(video, 'V', frameTicks, depth);
        AddTracks(audio, 'A', frameTicks, depth);
        const std::string tracks = fmt::format("{}", project_.List(audio, "Track").size());
        const std::string index = value(audio, "MasterTrack/Index"); // mostly behind all tracks
        AddLine(depth,
                fmt::format("next {} {}, master {} of {} channels{}", value(video, "NextTrackID"),
                            value(audio, "NextTrackID"), value(audio, "MasterTrack/ChannelType"),
                            value(audio, "NumAdaptiveChannels"),
                            index == tracks ? "" : " at " + index));
        for (const std::string& marker : Markers(sequence, frameTicks))
            AddLine(depth, "marker " + marker);
        for (const Element* const link : project_.List(sequence, "Link")) {
            std::string line = "link";
            for (const Element* const item : project_.List(*link, "TrackItem"))
                line.append(" ").append(locations_[item]);
            AddLine(depth, line);
        }
        for (const Element* const group : {&video, &audio})
            for (const Element* const track : project_.List(*group, "Track"))
                for (const Element* const item : project_.List(*track, "TrackItem"))
                    AddSequence(project_.At(*item, "SubClip/Clip/Source/Sequence"), depth + 1);
    }

    void AddTracks(const Element& group, char kind, std::int64_t frameTicks, std::size_t depth)
    {
        int number = 0;
        for (const Element* const track : project_.List(group, "Track")) {
            const std::string location = fmt::format("{}{}", kind, ++number);
            std::string line =
                fmt::format("{} id {}", location, project_.Value(*track, "Track/ID"));
            if (kind == 'A')
                line += fmt::format(" type {} {}", project_.Value(*track, "ChannelType"),
                                    PannerText(project_.At(*track, "Panner")));
            for (const char* const flag : {"IsMuted", "IsLocked"})
                if (project_.Value(*track, flag) == "true")
                    line.append(" ").append(flag);
            if (const std::string name = project_.Value(*track, "MZ.TrackName"); !name.empty())
                line += fmt::format(" \"{}\"", name);
            int position = 0;
            for (const Element* const item : project_.List(*track, "TrackItem")) {
                locations_[item] = fmt::format("{}.{}", location, ++position);
                line.append(position == 1 ? ": " : ", ").append(ItemText(*item, frameTicks));
            }
            AddLine(depth, line);
            for (const Element* const transition : project_.List(*track, "TransitionTrackItem"))
                AddLine(depth + 1, TransitionText(*track, *transition, frameTicks));
        }
    }

    std::string PannerText(const Element& panner) const
    {
        std::string text = panner.name;
        for (int channel = 0;; ++channel) {
            const std::string out =
                project_.Value(panner, fmt::format("AssignedChannel{}", channel));
            if (out.empty())
                break;
            text += fmt::format(" {}>{}", channel, out);
        }
        const std::string matrix = project_.Value(panner, "Matrix");
        return text + FieldsOf(matrix, "\"SerializerWrappedObject\":", "}");
    }

    std::string ItemText(const Element& item, std::int64_t frameTicks) const
    {
        const Element& clip = project_.At(item, "SubClip/Clip");
        const auto frames = [&](const Element& node, std::string_view key) {
            return Frames(Count(project_.Value(node, key)), frameTicks);
        };
        std::string text =
            fmt::format("\"{}\" {}-{} [{}-{}]", project_.At(item, "SubClip").Child("Name").text,
                        frames(item, "Start"), frames(item, "End"), frames(clip, "InPoint"),
                        frames(clip, "OutPoint"));
        if (project_.Value(item, "IsMuted") == "true")
            text += " muted";
        for (const std::string_view key :
             {"PlaybackSpeed", "PlayBackwards", "FrameHold", "SelectedTrackIndex"})
            if (const std::string value = project_.Value(clip, key); !value.empty() && value != "0")
                text += fmt::format(" {} {}", key, value);
        if (project_.Value(clip, "FrameHold") == "1")
            text += " at " + frames(clip, "FrameHoldStart");
        if (const Element& graph = project_.At(clip, "TimeRemapping/Keyframes"); !graph.IsNone())
            text += fmt::format(" remapped {}..{} {}", project_.Value(graph, "LowerBound"),
                                project_.Value(graph, "UpperBound"),
                                project_.Value(graph, "Keyframes"));
        if (clip.name == "AudioClip")
            text += " ch";
        for (const Element* const channel : project_.List(clip, "SecondaryContentItem"))
            if (!project_.At(*channel, "Content").IsNone())
                text += " " + project_.Value(*channel, "ChannelIndex");
        for (const std::string& marker : Markers(clip, frameTicks))
            text += " marker " + marker;
        return text;
    }

    // "A>B 90-110 cut 10": neighbours, range and cut in frames, and what is played.
    std::string TransitionText(const Element& track, const Element& transition,
                               std::int64_t frameTicks) const
    {
        const auto neighbour = [&](std::string_view key) {
            std::string name;
            for (const Element* const item : project_.List(track, "TrackItem"))
                if (&project_.At(*item, key) == &transition)
                    name += project_.At(*item, "SubClip").Child("Name").text;
            return name;
        };
        const auto value = [&](std::string_view key) { return project_.Value(transition, key); };
        std::string text = fmt::format(
            "{}>{} {}-{} cut {} {} \"{}\"", neighbour("TailTransition"),
            neighbour("HeadTransition"), Frames(Count(value("Start")), frameTicks),
            Frames(Count(value("End")), frameTicks), Frames(Count(value("Alignment")), frameTicks),
            value("MatchName"), value("DisplayName"));
        if (transition.name == "VideoTransitionTrackItem")
            text += fmt::format(" direction {}, border {} {}, {}{}-{}", value("Direction"),
                                value("BorderWidth"), value("BorderColor"),
                                value("Reverse") == "true" ? "reverse " : "", value("StartPercent"),
                                value("EndPercent"));
        else
            text += fmt::format(" type {} rate {}", value("ChannelType"), value("FrameRate"));
        const auto isOpen = [&](std::string_view key, std::string_view flag) {
            return neighbour(key).empty() == (value(flag) == "true");
        };
        if (isOpen("TailTransition", "HasOutgoingClip") ||
            isOpen("HeadTransition", "HasIncomingClip"))
            text += " FLAGS";
        return text;
    }

    std::vector<std::string> Markers(const Element& owner, std::int64_t frameTicks) const
    {
        std::vector<std::string> markers;
        for (const Element& entry :
             project_.At(owner, "MarkerOwner/Markers").Child("Markers").children) {
            const std::string record = project_.Value(entry, "Second/HULMarker");
            if (entry.name != "Marker")
                continue;
            std::string text = fmt::format(
                "\"{}\" {} for {} {} \"{}\"", FieldsOf(record, "\"mName\":\"", "\""),
                Frames(Count(entry.Child("First").text), frameTicks),
                Frames(Count(FieldsOf(record, "\"mDuration\":{\"ticks\":", "}")), frameTicks),
                FieldsOf(record, "\"mType\":\"", "\""), FieldsOf(record, "\"mComment\":\"", "\""));
            if (record.find("color") != record.npos)
                text += " color " + FieldsOf(record, "color\\\":", "}");
            markers.push_back(std::move(text));
        }
        return markers;
    }

    ProjectText project_;
    std::string text_;
    std::set<const Element*> seen_;
    std::map<const Element*, std::string> locations_; // "V1.2", by track item
};

// Ticks as a count of units; what is no count of them, or has no unit, stays as it is.
std::string CountText(const std::string& text, std::int64_t unit)
{
    const bool isCount = unit > 0 && unit != std::numeric_limits<std::int64_t>::max() &&
                         !text.empty() && Count(text) % unit == 0;
    return isCount ? fmt::format("{}", Count(text) / unit) : text;
}

class MediaList {
public:
    explicit MediaList(std::string_view text) : project_(text) {}

    std::string Text()
    {
        VisitItems(project_, [this](const Element& item, const Element& bin, std::size_t) {
            if (item.name != "BinProjectItem")
                AddItem(item, bin.name == "RootProjectItem" ? "Root Bin" : Value(bin, "Name"));
        });
        return std::move(text_);
    }

private:
    std::string Value(const Element& object, std::string_view path) const
    {
        return project_.Value(object, path);
    }
    bool IsTrue(const Element& object, std::string_view path) const
    {
        return Value(object, path) == "true";
    }

    void AddItem(const Element& item, const std::string& bin)
    {
        text_ += fmt::format("Item \"{}\" in \"{}\"", Value(item, "Name"), bin);
        if (const auto label = Value(item, "Column.PropertyText.Label"); !label.empty())
            text_ += fmt::format(" label {}", label);
        const Element& master = project_.At(item, "MasterClip");
        text_ += fmt::format("\n  Master \"{}\"", master.Child("Name").text);
        if (!seen_.insert(&master).second) {
            text_ += " again\n";
            return;
        }
        text_ += GroupsText(master) + "\n";
        for (const Element* const clip : project_.List(master, "Clip"))
            text_ += "  " + ClipText(*clip) + "\n";
    }

    std::string GroupsText(const Element& master) const
    {
        std::string text;
        for (const Element* const group : project_.List(
                 project_.At(master, "AudioClipChannelGroups"), "ClipChannelVectorItem")) {
            text += fmt::format(" {}:", Value(*group, "ChannelType"));
            for (const Element* const item : project_.List(*group, "ClipChannelItem"))
                text += fmt::format("({},{})", Value(*item, "SourceClipIndex"),
                                    Value(*item, "mSourceChannelIndex"));
        }
        return text.empty() ? text : " groups" + text;
    }

    std::string ClipText(const Element& clip) const
    {
        const bool isVideo = clip.name == "VideoClip";
        const Element& source = project_.At(clip, "Source");
        const std::string rate = Value(clip, "FrameRate");
        const auto range = [&](const Element& node, std::string_view from, std::string_view to) {
            return CountText(Value(node, from), Count(rate)) + "-" +
                   CountText(Value(node, to), Count(rate));
        };
        std::string text = fmt::format("{} {} x {}", isVideo ? "video" : "audio", rate,
                                       CountText(Value(source, "OriginalDuration"), Count(rate)));
        if (Value(source, "StartBoundary") != "-101606400000000000")
            text += fmt::format(" {{{}{}}}", range(source, "StartBoundary", "EndBoundary"),
                                IsTrue(source, "BoundariesAreHard") ? "" : " soft");
        if (!Value(clip, "InPoint").empty() || !Value(clip, "OutPoint").empty())
            text += fmt::format(" [{}]", range(clip, "InPoint", "OutPoint"));
        if (!isVideo)
            text += " channels";
        for (const Element* const channel : project_.List(clip, "SecondaryContentItem"))
            text += " " + Value(*channel, "ChannelIndex");
        const std::size_t markers =
            project_.List(project_.At(clip, "MarkerOwner/Markers"), "Second").size();
        return text + MediaText(source, isVideo) +
               (markers > 0 ? fmt::format(" with {} markers", markers) : "");
    }

    std::string MediaText(const Element& source, bool isVideo) const
    {
        const Element& media = project_.At(source, "Media");
        if (media.IsNone())
            return fmt::format(" of sequence \"{}\"", Value(source, "Sequence/Name"));
        std::string text = fmt::format(" of \"{}\"", Value(media, "FilePath"));
        if (IsTrue(media, "Infinite"))
            text += " without end";
        if (const std::string number = Value(media, "StreamNumber"); !number.empty())
            text += " stream " + number;
        if (const std::string prefs = Value(media, "ImporterPrefs"); !prefs.empty())
            text += PrefsText(DecodeBase64(prefs));
        return text + ": " +
               (isVideo ? VideoText(project_.At(media, "VideoStream"))
                        : FieldsOf(Value(media, "AudioStream/AudioChannelLayout"),
                                   "channellabel\":", "}"));
    }

    static std::string PrefsText(const std::string& bytes)
    {
        if (bytes.starts_with("<?xml"))
            return " prefs a title";
        std::string text = " prefs ";
        for (const char byte : bytes)
            text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
        return text;
    }

    std::string VideoText(const Element& stream) const
    {
        std::string text =
            fmt::format("{} {}", Value(stream, "FrameRect"), Value(stream, "OriginalPAR"));
        if (IsTrue(stream, "IsPAROverridden"))
            text += " now " + Value(stream, "OverriddenPAR");
        text += " field " + Value(stream, "OriginalFieldType");
        for (const std::string_view flag : {"IsStill", "IsContinuousTime"})
            if (IsTrue(stream, flag))
                text.append(" ").append(flag);
        return text;
    }

    ProjectText project_;
    std::string text_;
    std::set<const Element*> seen_;
};

void AddIndented(const Element& element, std::size_t depth, std::string& text)
{
    const std::string indent(2 * depth, ' ');
    text += indent + element.name;
    for (const auto& [key, value] : element.attributes)
        text += fmt::format(" {}=\"{}\"", key, value);
    text += element.text.empty() ? "\n" : " = " + element.text + "\n";
    for (const Element& child : element.children)
        AddIndented(child, depth + 1, text);
}

void AddListed(const Element& element, const std::string& tags, std::string& text)
{
    if (tags.find("," + element.name + ",") != tags.npos)
        text +=
            (text.empty() || text.back() == '\n' ? "" : " ") + element.name + "=" + element.text;
    for (const Element& child : element.children)
        AddListed(child, tags, text);
}

} // namespace

std::string TimelineOutline(std::string_view project)
{
    return Timelines(project).Text();
}

std::string MediaOutline(std::string_view project)
{
    return MediaList(project).Text();
}

std::string TitlesOutline(std::string_view project, std::string_view tags)
{
    std::string text;
    for (const Element& object : ParseElements(project).children) {
        const std::string title = DecodeBase64(object.Child("ImporterPrefs").text);
        if (object.name != "Media" || !title.starts_with("<?xml"))
            continue;
        if (tags.empty())
            AddIndented(ParseElements(title), 0, text);
        else
            AddListed(ParseElements(title), "," + std::string(tags) + ",", text);
        text += tags.empty() ? "" : "\n";
    }
    return text;
}

} // namespace XPJ

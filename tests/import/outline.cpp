#include "import/outline.h"

#include "core/numbers.h"
#include "core/ticks.h"

#include <fmt/format.h>

#include <map>
#include <string_view>

namespace XPJ {
namespace {

std::string FramesText(Ticks ticks, Ticks frameTicks)
{
    const Ticks rest = frameTicks > 0 ? ticks % frameTicks : 0;
    const std::string frames = IntToString(frameTicks > 0 ? ticks / frameTicks : ticks);
    return rest == 0 ? frames : fmt::format("{}{:+}", frames, rest);
}

class Outline {
public:
    std::string Take() { return std::move(text_); }

    void AddItems(ObjectHandle parent, std::size_t depth)
    {
        for (const ObjectHandle& item : parent.GetChildren("ProjectItem")) {
            const bool isBin = item.GetName() == "BinProjectItem";
            const ObjectHandle master = item.GetChild("MasterClip");
            if (isBin)
                AddLine(depth, fmt::format("Bin \"{}\"", item.GetProperty("Name")));
            else
                AddLine(depth, fmt::format("Item \"{}\" is \"{}\"", item.GetProperty("Name"),
                                           master.GetProperty("Name")));
            AddSequence(FindPath(master, {"Clip", "Source", "Sequence"}), depth + 1);
            AddItems(item, depth + 1);
        }
    }

private:
    void AddLine(std::size_t depth, const std::string& line)
    {
        text_ += std::string(2 * depth, ' ') + line + "\n";
    }

    void AddSequence(ObjectHandle sequence, std::size_t depth)
    {
        if (!sequence || !seen_.Insert(sequence))
            return;
        ObjectHandle video;
        ObjectHandle audio;
        for (const ObjectHandle& group : sequence.GetChildren("TrackGroup"))
            (group.GetName() == "VideoTrackGroup" ? video : audio) = group;
        AddLine(depth,
                fmt::format("Sequence {} \"{}\": frame {}, sample {}, {}, {}, field {}",
                            sequence.GetProperty("ID"), sequence.GetProperty("Name"),
                            video.GetProperty("FrameRate"), audio.GetProperty("FrameRate"),
                            video.GetProperty("FrameRect"), video.GetProperty("PixelAspectRatio"),
                            video.GetProperty("FieldType")));
        if (const auto zero = sequence.GetProperty("MZ.ZeroPoint"); !zero.empty())
            AddLine(depth, fmt::format("zero {}, display {}", zero,
                                       sequence.GetProperty("MZ.Sequence.VideoTimeDisplayFormat")));
        const Ticks frameTicks = Int64Property(video, "FrameRate");
        AddTracks(video, 'V', frameTicks, depth);
        AddTracks(audio, 'A', frameTicks, depth);
        const ObjectHandle master = audio.GetChild("MasterTrack");
        AddLine(depth, fmt::format(
                           "next {} {}, master {} of {} channels", video.GetProperty("NextTrackID"),
                           audio.GetProperty("NextTrackID"), master.GetProperty("ChannelType"),
                           audio.GetProperty("NumAdaptiveChannels")));
        AddMarkers(sequence, frameTicks, depth);
        AddLinks(sequence, depth);
        AddShownSequences({video, audio}, depth);
    }

    void AddTracks(ObjectHandle group, char kind, Ticks frameTicks, std::size_t depth)
    {
        int number = 0;
        for (const ObjectHandle& track : group.GetChildren("Track")) {
            const std::string place = fmt::format("{}{}", kind, ++number);
            std::string line = fmt::format("{} id {}", place, track.GetProperty("ID"));
            if (kind == 'A')
                line += fmt::format(" type {} {}", track.GetProperty("ChannelType"),
                                    track.GetChild("Panner").GetName().View());
            for (const char* flag : {"IsMuted", "IsLocked"})
                if (track.GetProperty(std::string_view(flag)) == "true")
                    line.append(" ").append(flag);
            int position = 0;
            for (const ObjectHandle& item : track.GetChildren("TrackItem")) {
                places_[item.UniqueId()] = fmt::format("{}.{}", place, ++position);
                line.append(position == 1 ? ": " : ", ").append(ItemText(item, frameTicks));
            }
            AddLine(depth, line);
        }
    }

    static std::string ItemText(ObjectHandle item, Ticks frameTicks)
    {
        const ObjectHandle subClip = item.GetChild("SubClip");
        const ObjectHandle clip = subClip.GetChild("Clip");
        const auto frames = [&](ObjectHandle node, Name key) {
            return FramesText(Int64Property(node, key), frameTicks);
        };
        std::string text =
            fmt::format("\"{}\" {}-{} [{}-{}]", subClip.GetProperty("Name"), frames(item, "Start"),
                        frames(item, "End"), frames(clip, "InPoint"), frames(clip, "OutPoint"));
        if (item.GetProperty("IsMuted") == "true")
            text += " muted";
        for (const Name key : {Name("PlaybackSpeed"), Name("PlayBackwards"), Name("FrameHold"),
                               Name("SelectedTrackIndex")})
            if (const auto value = clip.GetProperty(key); !value.empty() && value != "0")
                text += fmt::format(" {} {}", key.View(), value);
        if (clip.GetName() == "AudioClip")
            text += " ch";
        for (const ObjectHandle& channel : clip.GetChildren("SecondaryContentItem"))
            if (channel.HasChild("Content"))
                text += fmt::format(" {}", channel.GetProperty("ChannelIndex"));
        for (const ObjectHandle& marker : clip.GetChild("Markers").GetChildren("Marker"))
            text += fmt::format(" marker {}", frames(marker, "StartTime"));
        return text;
    }

    void AddMarkers(ObjectHandle sequence, Ticks frameTicks, std::size_t depth)
    {
        for (const ObjectHandle& marker : sequence.GetChild("Markers").GetChildren("Marker"))
            AddLine(depth,
                    fmt::format("marker \"{}\" {} for {} {} \"{}\"", marker.GetProperty("Name"),
                                FramesText(Int64Property(marker, "StartTime"), frameTicks),
                                FramesText(Int64Property(marker, "Duration"), frameTicks),
                                marker.GetProperty("Type"), marker.GetProperty("Comment")));
    }

    void AddLinks(ObjectHandle sequence, std::size_t depth)
    {
        for (const ObjectHandle& link :
             sequence.GetChild("PersistentGroupContainer").GetChildren("Link")) {
            std::string line = "link";
            for (const ObjectHandle& item : link.GetChildren("TrackItem"))
                line.append(" ").append(places_[item.UniqueId()]);
            AddLine(depth, line);
        }
    }

    void AddShownSequences(std::initializer_list<ObjectHandle> groups, std::size_t depth)
    {
        for (const ObjectHandle& group : groups)
            for (const ObjectHandle& track : group.GetChildren("Track"))
                for (const ObjectHandle& item : track.GetChildren("TrackItem"))
                    AddSequence(FindPath(item, {"SubClip", "Clip", "Source", "Sequence"}),
                                depth + 1);
    }

    std::string text_;
    NodeSet seen_;
    std::map<std::uint64_t, std::string> places_; // "V1.2", by track item
};

} // namespace

std::string OutlineText(ObjectHandle project)
{
    Outline outline;
    outline.AddItems(project.GetChild("RootProjectItem"), 0);
    return outline.Take();
}

} // namespace XPJ

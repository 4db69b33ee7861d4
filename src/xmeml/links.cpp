#include "xmeml/links.h"

#include "xmeml/tracks.h"

#include <algorithm>

namespace XPJ {

namespace {

MediaType TypeNamed(std::string_view name, MediaType other)
{
    return name == "video" ? MediaType::Video : name == "audio" ? MediaType::Audio : other;
}

} // namespace

LinkIndex::LinkIndex(ConstHandle sequence, int sequenceNumber) : sequenceNumber_(sequenceNumber)
{
    const ConstHandle media = sequence.GetChild("media");
    AddTracks(media.GetChild("video"), MediaType::Video);
    AddTracks(media.GetChild("audio"), MediaType::Audio);
}

void LinkIndex::AddTracks(ConstHandle group, MediaType type)
{
    std::vector<Track>& tracks = tracks_[static_cast<std::size_t>(type)];
    for (const ConstHandle& element : group.GetChildren("track")) {
        Track& track = tracks.emplace_back(Track{.first = items_.size()});
        for (const ConstHandle& item : element.GetChildren()) {
            if (!IsTrackItem(item))
                continue;
            items_.push_back(item);
            ++track.count;
            if (HasValue(item, "id"))
                byId_.try_emplace(item.GetProperty("id"),
                                  KeyOfItem(item, {.sequenceNumber = sequenceNumber_,
                                                   .type = type,
                                                   .track = static_cast<int>(tracks.size()),
                                                   .position = static_cast<int>(track.count)}));
        }
    }
}

// Many documents state the id alone, or count positions without transitions.
LinkKey LinkIndex::TargetOf(ConstHandle link) const
{
    const auto named = byId_.find(link.GetProperty("linkclipref"));
    if (named != byId_.end())
        return named->second;
    const std::string_view type = link.GetProperty("mediatype");
    if (type != "video" && type != "audio")
        return {.sequenceNumber = sequenceNumber_}; // no item has track 0
    return {.sequenceNumber = sequenceNumber_,
            .type = TypeNamed(type, MediaType::Audio),
            .track = IntProperty(link, "trackindex"),
            .position = IntProperty(link, "clipindex")};
}

std::optional<std::size_t> LinkIndex::NumberOf(const LinkKey& key) const
{
    const std::vector<Track>& tracks = tracks_[static_cast<std::size_t>(key.type)];
    const auto track = static_cast<std::size_t>(std::max(key.track, 0));
    if (track == 0 || track > tracks.size())
        return {};
    const auto [first, count] = tracks[track - 1];
    const auto position = static_cast<std::size_t>(std::max(key.position, 0));
    if (position == 0 || position > count)
        return {};
    return first + position - 1;
}

ConstHandle LinkIndex::ItemAt(const LinkKey& key) const
{
    const std::optional<std::size_t> number = NumberOf(key);
    return number ? items_[*number] : ConstHandle();
}

LinkKey KeyOfItem(ConstHandle item, const LinkKey& onTrack)
{
    LinkKey key = onTrack;
    key.type = TypeNamed(item.GetChild("sourcetrack").GetProperty("mediatype"), onTrack.type);
    return key;
}

} // namespace XPJ

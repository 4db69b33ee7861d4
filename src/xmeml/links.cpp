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
    Tracks& tracks = items_[static_cast<std::size_t>(type)];
    for (const ConstHandle& track : group.GetChildren("track")) {
        std::vector<ConstHandle>& items = tracks.emplace_back();
        for (const ConstHandle& item : track.GetChildren()) {
            if (!IsTrackItem(item))
                continue;
            items.push_back(item);
            if (HasValue(item, "id"))
                byId_.try_emplace(item.GetProperty("id"),
                                  KeyOfItem(item, {.sequenceNumber = sequenceNumber_,
                                                   .type = type,
                                                   .track = static_cast<int>(tracks.size()),
                                                   .position = static_cast<int>(items.size())}));
        }
    }
}

// Many documents state the id alone, or count positions without transitions.
LinkKey LinkIndex::TargetOf(ConstHandle link) const
{
    const auto named = byId_.find(link.GetProperty("linkclipref"));
    if (named != byId_.end())
        return named->second;
    return {.sequenceNumber = sequenceNumber_,
            .type = TypeNamed(link.GetProperty("mediatype"), MediaType::Audio),
            .track = IntProperty(link, "trackindex"),
            .position = IntProperty(link, "clipindex")};
}

ConstHandle LinkIndex::ItemAt(const LinkKey& key) const
{
    const Tracks& tracks = items_[static_cast<std::size_t>(key.type)];
    const auto track = static_cast<std::size_t>(std::max(key.track, 0));
    if (track == 0 || track > tracks.size())
        return {};
    const std::vector<ConstHandle>& items = tracks[track - 1];
    const auto position = static_cast<std::size_t>(std::max(key.position, 0));
    return position == 0 || position > items.size() ? ConstHandle() : items[position - 1];
}

LinkKey KeyOfItem(ConstHandle item, const LinkKey& onTrack)
{
    LinkKey key = onTrack;
    key.type = TypeNamed(item.GetChild("sourcetrack").GetProperty("mediatype"), onTrack.type);
    return key;
}

} // namespace XPJ

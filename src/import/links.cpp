#include "import/links.h"

#include "core/numbers.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace XPJ {

namespace {

MediaType TypeNamed(std::string_view name, MediaType other)
{
    return name == "video" ? MediaType::Video : name == "audio" ? MediaType::Audio : other;
}

// The order of items in a Link, and of Links by their first items.
struct LinkOrder {
    std::int64_t start = 0;
    std::int64_t track = 0;
    std::string_view mediaType;
    ObjectHandle item;

    explicit LinkOrder(ObjectHandle trackItem)
        : start(Int64Property(trackItem, "Start")), track(Int64Property(trackItem, "TrackIndex")),
          mediaType(trackItem.GetProperty("MediaType")), item(trackItem)
    {
    }
    friend bool operator<(const LinkOrder& a, const LinkOrder& b)
    {
        return std::tie(a.start, a.track, a.mediaType) < std::tie(b.start, b.track, b.mediaType);
    }
};

using Group = std::vector<LinkOrder>;

Group ItemsOf(const ImportState& state, const std::vector<LinkKey>& keys)
{
    Group group;
    for (const LinkKey& key : keys)
        if (const auto found = state.linkItems.find(key); found != state.linkItems.end())
            group.emplace_back(found->second);
    std::stable_sort(group.begin(), group.end());
    return group;
}

ObjectHandle MakeLink(Document& document, const Group& group)
{
    const ObjectHandle link = document.NewObject("Link");
    for (const LinkOrder& member : group) {
        member.item.SetProperty("LinkRefCount", "1");
        link.AddChild("TrackItem", member.item);
    }
    return link;
}

void AddLinks(Document& document, std::vector<Group>& groups, ObjectHandle sequence)
{
    const auto startsEarlier = [](const Group& a, const Group& b) { return a.front() < b.front(); };
    std::stable_sort(groups.begin(), groups.end(), startsEarlier);
    const ObjectHandle container = document.NewObject("LinkContainer");
    for (const Group& group : groups)
        container.AddChild("Link", MakeLink(document, group));
    sequence.AddChild("PersistentGroupContainer", container);
}

} // namespace

LinkIndex::LinkIndex(ObjectHandle sequence, int sequenceNumber) : sequenceNumber_(sequenceNumber)
{
    const ObjectHandle media = sequence.GetChild("media");
    AddTracks(media.GetChild("video"), MediaType::Video);
    AddTracks(media.GetChild("audio"), MediaType::Audio);
}

void LinkIndex::AddTracks(ObjectHandle medium, MediaType type)
{
    auto& tracks = items_[static_cast<std::size_t>(type)];
    for (const ObjectHandle& track : medium.GetChildren("track")) {
        std::vector<ObjectHandle>& items = tracks.emplace_back();
        for (const ObjectHandle& item : track.GetChildren()) {
            if (!IsTrackItem(item))
                continue;
            items.push_back(item);
            if (HasValue(item, "id"))
                byId_.emplace(item.GetProperty("id"), KeyOfItem(item, type, sequenceNumber_,
                                                                static_cast<int>(tracks.size()),
                                                                static_cast<int>(items.size())));
        }
    }
}

// Many documents state the id alone, or count positions without transitions.
LinkKey LinkIndex::TargetOf(ObjectHandle link) const
{
    if (const auto named = byId_.find(link.GetProperty("linkclipref")); named != byId_.end())
        return named->second;
    return {.sequenceNumber = sequenceNumber_,
            .type = TypeNamed(link.GetProperty("mediatype"), MediaType::Audio),
            .track = IntProperty(link, "trackindex"),
            .position = IntProperty(link, "clipindex")};
}

ObjectHandle LinkIndex::ItemAt(const LinkKey& key) const
{
    const auto& tracks = items_[static_cast<std::size_t>(key.type)];
    const auto track = static_cast<std::size_t>(std::max(key.track, 0));
    if (track == 0 || track > tracks.size())
        return {};
    const std::vector<ObjectHandle>& items = tracks[track - 1];
    const auto position = static_cast<std::size_t>(std::max(key.position, 0));
    return position == 0 || position > items.size() ? ObjectHandle() : items[position - 1];
}

bool IsTrackItem(ObjectHandle child)
{
    const Name name = child.GetName();
    return name == "clipitem" || name == "generatoritem" || name == "transitionitem";
}

LinkKey KeyOfItem(ObjectHandle item, MediaType trackType, int sequenceNumber, int track,
                  int position)
{
    const std::string_view stated = item.GetChild("sourcetrack").GetProperty("mediatype");
    return {.sequenceNumber = sequenceNumber,
            .type = TypeNamed(stated, trackType),
            .track = track,
            .position = position};
}

void AddLinkRecord(ImportState& state, const LinkIndex& index, ObjectHandle item,
                   const LinkKey& key, ObjectHandle trackItem)
{
    // Every item is stored, since a group finds its members here; only the first one makes it.
    state.linkItems.emplace(key, trackItem);
    if (!item.HasChild("link") || !state.linkKeysSeen.insert(key).second)
        return;
    std::vector<LinkKey> group{key};
    for (const ObjectHandle& link : item.GetChildren("link"))
        if (const LinkKey target = index.TargetOf(link); state.linkKeysSeen.insert(target).second)
            group.push_back(target);
    state.linkGroups.push_back(std::move(group));
}

void AddLinkGroup(ImportState& state, const std::vector<LinkedItem>& items)
{
    std::vector<LinkKey> group;
    for (const LinkedItem& item : items) {
        state.linkItems[item.key] = item.trackItem;
        if (state.linkKeysSeen.insert(item.key).second)
            group.push_back(item.key);
    }
    state.linkGroups.push_back(std::move(group));
}

void LinkPass(ImportState& state)
{
    std::map<int, std::vector<Group>> groupsBySequence;
    for (const std::vector<LinkKey>& keys : state.linkGroups)
        if (Group group = ItemsOf(state, keys); group.size() > 1)
            groupsBySequence[keys.front().sequenceNumber].push_back(std::move(group));
    for (auto& [number, groups] : groupsBySequence)
        if (const auto sequence = state.sequencesByNumber.find(number);
            sequence != state.sequencesByNumber.end())
            AddLinks(state.document, groups, sequence->second);
}

} // namespace XPJ

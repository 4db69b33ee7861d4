#include "import/links.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace XPJ {

namespace {

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

using OrderedGroup = std::vector<LinkOrder>;

OrderedGroup ItemsOf(const LinkRecords& records, const LinkRecords::Group& keys)
{
    OrderedGroup group;
    for (const LinkKey& key : keys)
        if (const ObjectHandle item = records.ItemOf(key))
            group.emplace_back(item);
    std::stable_sort(group.begin(), group.end());
    return group;
}

ObjectHandle MakeLink(Document& document, const OrderedGroup& group)
{
    const ObjectHandle link = document.NewObject("Link");
    for (const LinkOrder& member : group) {
        member.item.SetPropertyShared("LinkRefCount", "1");
        link.AddChild("TrackItem", member.item);
    }
    return link;
}

void AddLinks(Document& document, std::vector<OrderedGroup>& groups, ObjectHandle sequence)
{
    const auto startsEarlier = [](const OrderedGroup& a, const OrderedGroup& b) {
        return a.front() < b.front();
    };
    std::stable_sort(groups.begin(), groups.end(), startsEarlier);
    const ObjectHandle container = document.NewObject("LinkContainer");
    for (const OrderedGroup& group : groups)
        container.AddChild("Link", MakeLink(document, group));
    sequence.AddChild("PersistentGroupContainer", container);
}

} // namespace

std::vector<ConstHandle> LinkRecords::Add(const LinkIndex& index, ConstHandle item,
                                          const LinkedItem& linked)
{
    // Every item is stored, since a group finds its members here; only the first one makes it.
    if (Record& record = records_[linked.key]; !record.trackItem)
        record.trackItem = linked.trackItem;
    if (!item.HasChild("link") || !MarkGrouped(linked.key))
        return {};
    Group group{linked.key};
    std::vector<ConstHandle> unknown;
    for (const ConstHandle& link : item.GetChildren("link")) {
        const LinkKey target = index.TargetOf(link);
        if (!MarkGrouped(target))
            continue;
        group.push_back(target);
        if (!index.ItemAt(target) && !index.IsNamed(link))
            unknown.push_back(link);
    }
    groups_.push_back(std::move(group));
    return unknown;
}

void LinkRecords::AddGroup(const std::vector<LinkedItem>& items)
{
    Group group;
    for (const LinkedItem& item : items) {
        records_[item.key].trackItem = item.trackItem;
        if (MarkGrouped(item.key))
            group.push_back(item.key);
    }
    groups_.push_back(std::move(group));
}

ObjectHandle LinkRecords::ItemOf(const LinkKey& key) const
{
    const auto record = records_.find(key);
    return record == records_.end() ? ObjectHandle() : record->second.trackItem;
}

bool LinkRecords::MarkGrouped(const LinkKey& key)
{
    return !std::exchange(records_[key].isGrouped, true);
}

void LinkPass(Document& document, const LinkRecords& records, const SequenceCatalog& sequences)
{
    std::map<int, std::vector<OrderedGroup>> groupsBySequence;
    for (const LinkRecords::Group& keys : records.Groups())
        if (OrderedGroup group = ItemsOf(records, keys); group.size() > 1)
            groupsBySequence[keys.front().sequenceNumber].push_back(std::move(group));
    for (auto& [number, groups] : groupsBySequence)
        if (const ObjectHandle sequence = sequences.OfNumber(number))
            AddLinks(document, groups, sequence);
}

} // namespace XPJ

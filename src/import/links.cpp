#include "import/links.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
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

OrderedGroup ItemsOf(const LinkRecords::Group& records)
{
    OrderedGroup group;
    for (const LinkRecords::Record* const record : records.members)
        if (record->trackItem)
            group.emplace_back(record->trackItem);
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
    Record& record = RecordOf(index, linked.key);
    if (!record.trackItem)
        record.trackItem = linked.trackItem;
    Group group{.sequenceNumber = linked.key.sequenceNumber};
    if (!item.HasChild("link") || !Join(group, record))
        return {};
    std::vector<ConstHandle> unknown;
    for (const ConstHandle& link : item.GetChildren("link")) {
        const LinkKey target = index.TargetOf(link);
        if (Join(group, RecordOf(index, target)) && !index.ItemAt(target) && !index.IsNamed(link))
            unknown.push_back(link);
    }
    groups_.push_back(std::move(group));
    return unknown;
}

void LinkRecords::AddGroup(const std::vector<LinkedItem>& items)
{
    const LinkIndex none;
    Group group;
    for (const LinkedItem& item : items) {
        Record& record = RecordOf(none, item.key);
        record.trackItem = item.trackItem;
        group.sequenceNumber = item.key.sequenceNumber;
        Join(group, record);
    }
    groups_.push_back(std::move(group));
}

LinkRecords::Record& LinkRecords::RecordOf(const LinkIndex& index, const LinkKey& key)
{
    SequenceRecords& records = sequences_[key.sequenceNumber];
    if (records.ofItems.empty())
        records.ofItems.resize(index.Size());
    const std::optional<std::size_t> number = index.NumberOf(key);
    return number ? records.ofItems[*number] : records.ofOthers[key];
}

bool LinkRecords::Join(Group& group, Record& record)
{
    if (record.isGrouped)
        return false;
    record.isGrouped = true;
    group.members.push_back(&record);
    return true;
}

void LinkPass(Document& document, const LinkRecords& records, const SequenceCatalog& sequences)
{
    constexpr std::size_t kAhead = 8; // the items of a group are loaded that many groups before
    std::map<int, std::vector<OrderedGroup>> groupsBySequence;
    const std::vector<LinkRecords::Group>& all = records.Groups();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i + kAhead < all.size())
            for (const LinkRecords::Record* const member : all[i + kAhead].members)
                PrefetchBehind(member->trackItem.Get());
        if (OrderedGroup group = ItemsOf(all[i]); group.size() > 1)
            groupsBySequence[all[i].sequenceNumber].push_back(std::move(group));
    }
    for (auto& [number, groups] : groupsBySequence)
        if (const ObjectHandle sequence = sequences.OfNumber(number))
            AddLinks(document, groups, sequence);
}

} // namespace XPJ

#include "export/links.h"

#include "core/numbers.h"
#include "core/text_hash.h"

namespace XPJ::RVX {

namespace {

// Video with as many channels as a track carries stays far below this. Each of the items gets as
// many links, so that a damaged project of one large group would fill a disk.
constexpr std::size_t kMaxLinkedItems = 256;

} // namespace

ObjectHandle WriteLink(Document& document, const LinkTarget& target)
{
    const ObjectHandle link = document.NewObject("link");
    link.SetPropertyShared("linkclipref", target.id);
    link.SetPropertyShared("mediatype", target.type == MediaType::Video ? "video" : "audio");
    link.SetProperty("trackindex", IntToString(target.track));
    link.SetProperty("clipindex", IntToString(target.position));
    if (target.isGrouped)
        link.SetPropertyShared("groupindex", "1");
    return link;
}

// An item that several links name belongs to the last of them.
void LinkGroups::AddLinksOf(ConstHandle sequence)
{
    for (const ConstHandle link : LinksOf(sequence)) {
        for (const ConstHandle item : LinkedItemsOf(link))
            groupOfItem_[item.UniqueId()] = groups_.size();
        groups_.emplace_back();
    }
}

bool LinkGroups::Contains(TrackItem item) const
{
    return groupOfItem_.contains(item.UniqueId());
}

void LinkGroups::AddGroupOf(TrackItem item)
{
    groupOfItem_[item.UniqueId()] = groups_.size();
    groups_.emplace_back();
}

void LinkGroups::Add(Document& document, const LinkedItem& item, const LinkTarget& target,
                     std::string_view source)
{
    const auto found = groupOfItem_.find(item.item.UniqueId());
    if (found == groupOfItem_.end())
        return;
    Group& group = groups_[found->second];
    if (group.members.empty())
        group.location = item.location;
    group.members.push_back({target.element, WriteLink(document, target), source, found->first});
}

// True where all show the same: items of other sources are no longer linked to them.
bool LinkGroups::WriteBySource(const Group& group)
{
    TextMap<std::vector<const Member*>> membersBySource;
    for (const Member& member : group.members) {
        if (member.source.empty())
            member.element.AddChild(member.link);
        else
            membersBySource[member.source].push_back(&member);
    }
    for (const auto& [source, members] : membersBySource) {
        if (members.size() > kMaxLinkedItems)
            continue;
        for (const Member* const item : members)
            for (const Member* const target : members)
                item->element.AddChild(target->link);
    }
    return group.members.size() < 2 ||
           (membersBySource.size() == 1 &&
            membersBySource.begin()->second.size() == group.members.size());
}

// The channels of an item come first: readers find them by the first links.
void LinkGroups::WriteAll(const Group& group)
{
    const bool isLarge = group.members.size() > kMaxLinkedItems;
    for (const Member& member : group.members) {
        if (isLarge && &member != &group.members.front()) {
            member.element.AddChild(member.link);
            member.element.AddChild(group.members.front().link);
            continue;
        }
        for (const bool ofItem : {true, false})
            for (const Member& target : group.members)
                if ((target.item == member.item) == ofItem)
                    member.element.AddChild(target.link);
    }
}

void LinkGroups::WriteLinks(ExportContext& context) const
{
    for (const Group& group : groups_) {
        if (context.options.settings.openInterchange) {
            WriteAll(group);
            continue;
        }
        if (!WriteBySource(group))
            AddRemark(context.account, RemarkKind::LinkOfFiles, group.location);
        if (group.members.size() > kMaxLinkedItems)
            AddRemark(context.account, RemarkKind::LinkTooLarge, group.location);
    }
}

} // namespace XPJ::RVX

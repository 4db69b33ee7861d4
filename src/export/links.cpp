#include "export/links.h"

#include "core/numbers.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ::RVX {

namespace {

// A picture with as many channels as a track carries stays far below this. Each of the items gets
// as many links, so that a damaged project of one large group would fill a disk.
constexpr std::size_t kMaxLinkedItems = 256;

// Items link when they show the same source; empty for one whose source has no name.
std::string_view SourceKey(ObjectHandle element)
{
    for (const std::string_view key :
         {element.GetProperty("masterclipid"), element.GetChild("file").GetProperty("id"),
          element.GetProperty("fileid"), element.GetProperty("sequenceid"),
          element.GetChild("sequence").GetProperty("id")})
        if (!key.empty())
            return key;
    return {};
}

void ResolveGroup(const LinkGroup& group)
{
    std::unordered_map<std::string_view, std::vector<std::size_t>> membersBySource;
    for (std::size_t i = 0; i < group.items.size(); ++i) {
        const std::string_view key = SourceKey(group.items[i]);
        if (key.empty())
            group.items[i].AddChild(group.links[i]);
        else
            membersBySource[key].push_back(i);
    }
    for (const auto& [key, members] : membersBySource) {
        if (members.size() > kMaxLinkedItems)
            continue;
        for (const std::size_t item : members)
            for (const std::size_t target : members)
                group.items[item].AddChild(group.links[target]);
    }
}

} // namespace

void OpenLinkGroup(ExportContext& context, ConstHandle itemCore)
{
    context.linkGroupOfItem[itemCore.UniqueId()] = context.linkGroups.size();
    context.linkGroups.emplace_back();
}

// An item that several links name belongs to the last of them.
void OpenLinkGroups(ExportContext& context, ConstHandle sequence)
{
    for (const ConstHandle link : LinksOf(sequence)) {
        for (const ConstHandle item : LinkedItemsOf(link))
            if (const ConstHandle core = ItemCore(item))
                context.linkGroupOfItem[core.UniqueId()] = context.linkGroups.size();
        context.linkGroups.emplace_back();
    }
}

bool HasLinkGroup(const ExportContext& context, ConstHandle itemCore)
{
    return context.linkGroupOfItem.contains(itemCore.UniqueId());
}

ObjectHandle NewLink(ExportContext& context, ObjectHandle element, MediaType kind, int track,
                     int position, bool grouped)
{
    const ObjectHandle link = context.document.NewObject("link");
    link.SetPropertyShared("linkclipref", element.GetProperty("id"));
    link.SetPropertyShared("mediatype", kind == MediaType::Video ? "video" : "audio");
    link.SetProperty("trackindex", IntToString(track));
    link.SetProperty("clipindex", IntToString(position));
    if (grouped)
        link.SetPropertyShared("groupindex", "1");
    return link;
}

void RegisterLink(ExportContext& context, ConstHandle itemCore, ObjectHandle element,
                  const TrackPlace& track, bool grouped)
{
    const auto found = context.linkGroupOfItem.find(itemCore.UniqueId());
    if (found == context.linkGroupOfItem.end())
        return;
    LinkGroup& group = context.linkGroups[found->second];
    group.items.push_back(element);
    group.links.push_back(
        NewLink(context, element, track.kind, track.number, track.NextPosition(), grouped));
}

void ResolveLinks(const ExportContext& context)
{
    for (const LinkGroup& group : context.linkGroups)
        ResolveGroup(group);
}

} // namespace XPJ::RVX

#include "import/master_catalog.h"

#include "core/numbers.h"

#include <algorithm>
#include <tuple>

namespace XPJ {

namespace {

template <class Map, class Key>
MasterClipHandle Lookup(const Map& map, const Key& key)
{
    const auto found = map.find(key);
    return found == map.end() ? MasterClipHandle() : found->second;
}

} // namespace

MasterClipHandle MasterRegistry::Find(const MasterKey& key) const
{
    if (key.mediaId.empty())
        return {};
    if (!key.masterClipId.empty())
        if (const auto exact = masters_.find(key); exact != masters_.end())
            return exact->second;
    const auto found = firsts_.find({{}, key.mediaId, key.layer, key.type});
    if (found == firsts_.end())
        return {};
    const First& first = found->second;
    const bool serves = key.masterClipId.empty() || first.masterClipId.empty();
    return serves ? first.master : MasterClipHandle();
}

bool MasterRegistry::Add(const MasterKey& key, MasterClipHandle master)
{
    // An entry that `Find` gives, the exact one or one that serves any element, takes the key.
    if (key.mediaId.empty() || Find(key))
        return false;
    masters_.try_emplace(key, master);
    const First own{key.masterClipId, master};
    const auto [first, isNew] = firsts_.try_emplace({{}, key.mediaId, key.layer, key.type}, own);
    if (key.masterClipId < first->second.masterClipId)
        first.value() = own;
    return true;
}

std::vector<MasterClipHandle> MasterRegistry::Entries() const
{
    std::vector<std::pair<MasterKey, MasterClipHandle>> sorted(masters_.begin(), masters_.end());
    std::ranges::sort(sorted, {}, [](const auto& entry) {
        const MasterKey& key = entry.first;
        return std::tuple(key.mediaId, key.layer, key.type, key.masterClipId);
    });
    std::vector<MasterClipHandle> entries;
    entries.reserve(sorted.size());
    for (const auto& [key, master] : sorted)
        entries.push_back(master);
    return entries;
}

ClipSignature SignatureOf(ConstHandle clip, std::string_view mediaId)
{
    return {mediaId,
            clip.GetProperty("masterclipid"),
            clip.GetProperty("name"),
            clip.GetProperty("duration"),
            clip.GetProperty("in"),
            clip.GetProperty("out")};
}

std::string MergeKind::Text() const
{
    std::string text;
    if (video > 0)
        text.append("V").append(IntToString(video));
    if (audio > 0)
        text.append("A").append(IntToString(audio));
    return isSubclip ? text + ",SUBCLIP" : text;
}

const ShownMaster& MasterCatalog::Shown(MasterClipHandle master)
{
    std::unique_ptr<const ShownMaster>& shown = shown_[master.UniqueId()];
    if (!shown)
        shown = std::make_unique<const ShownMaster>(ShownMaster{.master = master,
                                                                .videoClip = master.VideoClip(),
                                                                .sequence = master.Sequence(),
                                                                .channels = ChannelsOf(master)});
    return *shown;
}

MasterClipHandle MasterCatalog::BySignature(const ClipSignature& signature) const
{
    return Lookup(signatures_, signature);
}

bool MasterCatalog::HasSignature(const ClipSignature& signature) const
{
    return signatures_.contains(signature);
}

void MasterCatalog::AddSignature(const ClipSignature& signature, MasterClipHandle master)
{
    signatures_.emplace(signature, master);
}

MasterClipHandle MasterCatalog::OfMulticlip(std::string_view id) const
{
    return Lookup(multiclips_, id);
}

MasterClipHandle MasterCatalog::EqualMulticlip(const std::string& content) const
{
    return Lookup(equalMulticlips_, content);
}

void MasterCatalog::AddMulticlip(std::string_view id, const std::string& content,
                                 MasterClipHandle master)
{
    multiclips_.emplace(id, master);
    if (!content.empty())
        equalMulticlips_.emplace(content, master);
}

void MasterCatalog::AddComponent(const MergeComponent& component)
{
    components_.emplace(component.master.UniqueId(), component);
    if (knownMergeIds_.insert(component.mergeId).second)
        mergeIds_.push_back(component.mergeId);
}

const MergeComponent* MasterCatalog::ComponentOf(ConstHandle master) const
{
    const auto found = components_.find(master.UniqueId());
    return found == components_.end() ? nullptr : &found->second;
}

ConstHandle MasterCatalog::OriginOf(ConstHandle master) const
{
    const auto origin = origins_.find(master.UniqueId());
    return origin == origins_.end() ? ConstHandle() : origin->second;
}

void MasterCatalog::AddClipId(ObjectHandle master, ObjectHandle clipId)
{
    clipIds_.push_back({master, clipId});
}

void MasterCatalog::AttachClipIds()
{
    for (const ClipId& entry : clipIds_)
        entry.master.AddChild("ChildClipID", entry.id);
    clipIds_.clear();
}

bool RegisterMaster(MasterRegistry& registry, const RegisteredMedia& media, MasterClipHandle master)
{
    const auto add = [&](MediaType type) {
        return registry.Add({media.masterClipId, media.mediaId, media.layer, type}, master);
    };
    if (media.hasVideo && !add(MediaType::Video))
        return false;
    return !media.hasAudio || add(MediaType::Audio);
}

std::string_view MergeIdOf(ConstHandle clip)
{
    const std::string_view masterClipId = clip.GetProperty("masterclipid");
    return masterClipId.empty() ? clip.GetProperty("id") : masterClipId;
}

} // namespace XPJ

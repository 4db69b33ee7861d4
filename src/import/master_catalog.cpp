#include "import/master_catalog.h"

#include "core/numbers.h"

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
    const auto media = media_.find(key.mediaId);
    if (media == media_.end())
        return {};
    const auto layer = media->second.find({key.layer, key.type});
    if (layer == media->second.end())
        return {};
    const Masters& masters = layer->second;
    if (key.masterClipId.empty())
        return masters.begin()->second;
    if (const auto exact = masters.find(key.masterClipId); exact != masters.end())
        return exact->second;
    return Lookup(masters, std::string_view());
}

bool MasterRegistry::Add(const MasterKey& key, MasterClipHandle master)
{
    // An entry that `Find` gives, the exact one or one that serves any element, takes the key.
    if (key.mediaId.empty() || Find(key))
        return false;
    media_[std::string(key.mediaId)][{key.layer, key.type}].emplace(key.masterClipId, master);
    return true;
}

std::vector<MasterClipHandle> MasterRegistry::Entries() const
{
    std::map<std::string_view, const Layers*> byId;
    for (const auto& [mediaId, layers] : media_)
        byId.emplace(mediaId, &layers);
    std::vector<MasterClipHandle> entries;
    for (const auto& [mediaId, layers] : byId)
        for (const auto& [layer, masters] : *layers)
            for (const auto& [masterClipId, master] : masters)
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
    const auto found = origins_.find(master.UniqueId());
    return found == origins_.end() ? ConstHandle() : found->second;
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

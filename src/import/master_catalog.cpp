#include "import/master_catalog.h"

namespace XPJ {

ObjectHandle MasterRegistry::Find(std::string_view masterClipId, std::string_view mediaId,
                                  int layer, MediaType type) const
{
    if (mediaId.empty())
        return {};
    const auto media = media_.find(MediaKey(mediaId, layer, type));
    if (media == media_.end())
        return {};
    const Masters& masters = media->second;
    if (masterClipId.empty())
        return masters.begin()->second;
    if (const auto exact = masters.find(masterClipId); exact != masters.end())
        return exact->second;
    const auto forAny = masters.find(std::string_view());
    return forAny != masters.end() ? forAny->second : ObjectHandle();
}

bool MasterRegistry::Add(std::string_view masterClipId, std::string_view mediaId, int layer,
                         MediaType type, ObjectHandle master)
{
    // An entry that `Find` answers with, the exact one or one that stands for any, takes the key.
    if (mediaId.empty() || Find(masterClipId, mediaId, layer, type))
        return false;
    media_[MediaKey(mediaId, layer, type)].emplace(masterClipId, master);
    return true;
}

std::vector<ObjectHandle> MasterRegistry::Entries() const
{
    std::vector<ObjectHandle> entries;
    for (const auto& [key, masters] : media_)
        for (const auto& [masterClipId, master] : masters)
            entries.push_back(master);
    return entries;
}

} // namespace XPJ

// Which master clip stands for which media: the index that every track item asks.
//
// A master is entered under a file (or generator) id, a layer index, a media type and the
// `masterclipid` of who asked for it, which many documents leave out. An empty `masterclipid`
// therefore stands for any: it finds the media's first master, and one that is entered without it
// serves every asker and lets no other in.
//
//   registry.Add("m1", "f1", 0, MediaType::Video, master);
//   registry.Find("", "f1", 0, MediaType::Video)   // master
//   registry.Find("m2", "f1", 0, MediaType::Video) // none: m1 is another clip of that file
#pragma once

#include "core/media_type.h"
#include "tree/object.h"

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace XPJ {

class MasterRegistry {
public:
    // Null if there is none, and always for an empty media id.
    ObjectHandle Find(std::string_view masterClipId, std::string_view mediaId, int layer,
                      MediaType type) const;
    // False, and nothing is entered, when the key is taken or the media id is empty.
    bool Add(std::string_view masterClipId, std::string_view mediaId, int layer, MediaType type,
             ObjectHandle master);
    // Every entry, by media id, layer, media type and `masterclipid`. A master with picture and
    // sound is there twice.
    std::vector<ObjectHandle> Entries() const;

private:
    using MediaKey = std::tuple<std::string, int, MediaType>;
    using Masters = std::map<std::string, ObjectHandle, std::less<>>; // by `masterclipid`

    std::map<MediaKey, Masters> media_;
};

} // namespace XPJ

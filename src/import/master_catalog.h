// The master clips of an import: which of them shows which media, and which are parts of merged
// clips.
#pragma once

#include "core/media_type.h"
#include "core/text_hash.h"
#include "project/master_clip.h"
#include "tree/object.h"

#include <compare>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <boost/container_hash/hash.hpp>
#include <tsl/robin_map.h>

namespace XPJ {

// The media of a master: a file (or generator) id, a layer and a media type, as the element with a
// `masterclipid` knows them.
struct MasterKey {
    std::string_view masterClipId;
    std::string_view mediaId;
    int layer = 0;
    MediaType type = MediaType::Video;

    friend bool operator==(const MasterKey&, const MasterKey&) = default;
};

// The masters by their keys. Many documents omit the `masterclipid`, so an empty one means any: it
// finds the media's first master, and a master that is entered without it serves every element and
// keeps the key taken.
//
//   registry.Add({"m1", "f1"}, master);
//   registry.Find({"", "f1"})   // master
//   registry.Find({"m2", "f1"}) // none: m1 is another clip of that file
class MasterRegistry {
public:
    // Null if there is none, and always for an empty media id.
    MasterClipHandle Find(const MasterKey& key) const;
    // False, and nothing is entered, when the key is taken or the media id is empty.
    bool Add(const MasterKey& key, MasterClipHandle master);
    // Every entry, by media id, layer, media type and `masterclipid`. A master with video and audio
    // is there twice.
    std::vector<MasterClipHandle> Entries() const;

private:
    struct KeyHash {
        std::size_t operator()(const MasterKey& key) const
        {
            std::size_t hash = TextHash()(key.mediaId);
            boost::hash_combine(hash, TextHash()(key.masterClipId));
            boost::hash_combine(hash, key.layer);
            boost::hash_combine(hash, static_cast<int>(key.type));
            return hash;
        }
    };
    // Of all masters of the media: that of the first `masterclipid` in order.
    struct First {
        std::string_view masterClipId;
        MasterClipHandle master;
    };

    tsl::robin_map<MasterKey, MasterClipHandle, KeyHash> masters_;
    tsl::robin_map<MasterKey, First, KeyHash> firsts_; // by keys without a `masterclipid`
};

// What distinguishes a `clip` from other clips of the same media; the last five are the clip's own
// values.
struct ClipSignature {
    std::string_view mediaId;
    std::string_view masterClipId;
    std::string_view name;
    std::string_view duration;
    std::string_view in;
    std::string_view out;

    friend auto operator<=>(const ClipSignature&, const ClipSignature&) = default;
};
ClipSignature SignatureOf(ConstHandle clip, std::string_view mediaId);

// Sources of video and of audio, of a merged clip or of one of its parts. As text "V1A2,SUBCLIP".
struct MergeKind {
    int video = 0;
    int audio = 0;
    bool isSubclip = false;

    std::string Text() const;
};

// A master that is one of the files of a clip with several.
struct MergeComponent {
    MasterClipHandle master;
    ConstHandle clip;
    std::string_view mergeId;
    std::string_view fileId;
    int order = 0; // among the files of the clip
    MergeKind kind;
    bool hasCodec = false; // of a camera format that is known
};

// The item of a browser clip that is deferred until the merge pass knows whether its master is part
// of a merged clip.
struct DeferredItem {
    ConstHandle clip;
    MasterClipHandle master;
    ObjectHandle parentItem;
    std::string_view bin; // the path of the bins around it
};

// What items need of the master that they show: many show the same one.
struct ShownMaster {
    MasterClipHandle master;
    ObjectHandle videoClip; // the first; null without one
    ObjectHandle sequence;  // of a master of a sequence
    std::vector<MasterChannel> channels;
};

class MasterCatalog {
public:
    MasterRegistry registry;

    // Of a master that is complete, or of null. Its clips stay as they are.
    const ShownMaster& Shown(MasterClipHandle master);

    // The master of a `clip` with one of its files or generators.
    MasterClipHandle BySignature(const ClipSignature& signature) const;
    bool HasSignature(const ClipSignature& signature) const;
    void AddSignature(const ClipSignature& signature, MasterClipHandle master);

    // The master of an uncollapsed multiclip, by the `id` of the `multiclip`.
    MasterClipHandle OfMulticlip(std::string_view id) const;
    // False if the id is known. Multiclips of equal content, as `content` lists it, share the
    // master of the first one; an empty `content` equals nothing.
    bool HasMulticlip(std::string_view id) const { return multiclips_.contains(id); }
    MasterClipHandle EqualMulticlip(const std::string& content) const;
    void AddMulticlip(std::string_view id, const std::string& content, MasterClipHandle master);

    void AddComponent(const MergeComponent& component);
    // Null for a master that is no part of a merged clip.
    const MergeComponent* ComponentOf(ConstHandle master) const;
    bool IsMergeId(std::string_view id) const { return knownMergeIds_.contains(id); }
    // In the order in which their first components were added.
    const std::vector<std::string_view>& MergeIds() const { return mergeIds_; }

    // True the first time: the layers of an image are translated once for each `masterclipid`.
    bool BeginLayers(std::string_view masterClipId, std::string_view fileId)
    {
        return begunLayers_.emplace(masterClipId, fileId).second;
    }

    void Defer(std::string_view mergeId, const DeferredItem& item)
    {
        deferredItems_[mergeId].push_back(item);
    }
    const std::vector<DeferredItem>& DeferredItems(std::string_view mergeId)
    {
        return deferredItems_[mergeId];
    }

    // The element of which a master was built; null for one that was built of none.
    ConstHandle OriginOf(ConstHandle master) const;
    void SetOrigin(ConstHandle master, ConstHandle element)
    {
        origins_.try_emplace(master.UniqueId(), element);
    }

    // A master gets the `ChildClipID`s of its items at the end, so that no search in its children
    // passes over those of all its items.
    void AddClipId(ObjectHandle master, ObjectHandle clipId);
    void AttachClipIds();

private:
    struct ClipId {
        ObjectHandle master;
        ObjectHandle id;
    };

    tsl::robin_pg_map<std::uint64_t, std::unique_ptr<const ShownMaster>> shown_; // by `uniqueId`
    std::map<ClipSignature, MasterClipHandle> signatures_;
    TextMap<MasterClipHandle> multiclips_;
    TextMap<MasterClipHandle, std::string> equalMulticlips_;
    std::unordered_map<std::uint64_t, MergeComponent> components_; // by `uniqueId` of the master
    tsl::robin_pg_map<std::uint64_t, ConstHandle> origins_;        // likewise
    std::vector<std::string_view> mergeIds_;
    TextSet<> knownMergeIds_;
    std::set<std::pair<std::string_view, std::string_view>> begunLayers_;
    TextMap<std::vector<DeferredItem>> deferredItems_;
    std::vector<ClipId> clipIds_;
};

// Enters a master for its video, then for its audio. The first key that is taken ends it, with
// false; the master that holds the key is the one to use.
struct RegisteredMedia {
    std::string_view masterClipId;
    std::string_view mediaId;
    int layer = 0;
    bool hasVideo = true;
    bool hasAudio = false;
};
bool RegisterMaster(MasterRegistry& registry, const RegisteredMedia& media,
                    MasterClipHandle master);

// What a clip shares with others of one merged clip: its `masterclipid`, else its `id`.
std::string_view MergeIdOf(ConstHandle clip);

} // namespace XPJ

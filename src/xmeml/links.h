// Links between track items as documents state them, item by item.
#pragma once

#include "core/media_type.h"
#include "core/text_hash.h"
#include "tree/object.h"

#include <array>
#include <compare>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <vector>

#include <tsl/robin_map.h>

namespace XPJ {

// A track item as `link` elements name it. Track and position count from 1.
struct LinkKey {
    int sequenceNumber = 0;
    MediaType type = MediaType::Video;
    int track = 0;
    int position = 0;

    friend auto operator<=>(const LinkKey&, const LinkKey&) = default;
};

struct LinkKeyHash {
    std::size_t operator()(const LinkKey& key) const
    {
        static_assert(std::has_unique_object_representations_v<LinkKey>);
        return TextHash()({reinterpret_cast<const char*>(&key), sizeof(key)});
    }
};

// The items of one sequence as its `link`s name them.
class LinkIndex {
public:
    LinkIndex() = default;
    LinkIndex(ConstHandle sequence, int sequenceNumber);

    // Key of the item that a `link` names, by id where it states one, else by track and position.
    LinkKey TargetOf(ConstHandle link) const;
    // True for a `link` that states the id of an item.
    bool IsNamed(ConstHandle link) const { return byId_.contains(link.GetProperty("linkclipref")); }
    // The item of a key; null if there is none.
    ConstHandle ItemAt(const LinkKey& key) const;

private:
    void AddTracks(ConstHandle group, MediaType type);

    int sequenceNumber_ = 0;
    tsl::robin_map<std::string_view, LinkKey, TextHash> byId_;
    using Tracks = std::vector<std::vector<ConstHandle>>;
    std::array<Tracks, 2> items_; // by media type, track, position
};

// Key of an item whose track and position are known. Its `sourcetrack` decides about the type,
// where it states one.
LinkKey KeyOfItem(ConstHandle item, const LinkKey& onTrack);

} // namespace XPJ

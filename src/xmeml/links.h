// Links between track items as documents state them, item by item.
#pragma once

#include "core/media_type.h"
#include "core/text_hash.h"
#include "tree/object.h"

#include <array>
#include <compare>
#include <cstddef>
#include <optional>
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
    // How many items the sequence has.
    std::size_t Size() const { return items_.size(); }
    // Of the item of a key, from 0 to below `Size`; nothing if there is none.
    std::optional<std::size_t> NumberOf(const LinkKey& key) const;
    // Null if there is none.
    ConstHandle ItemAt(const LinkKey& key) const;

private:
    struct Track {
        std::size_t first = 0; // in `items_`
        std::size_t count = 0;
    };

    void AddTracks(ConstHandle group, MediaType type);

    int sequenceNumber_ = 0;
    tsl::robin_map<std::string_view, LinkKey, TextHash> byId_;
    std::vector<ConstHandle> items_;           // track by track
    std::array<std::vector<Track>, 2> tracks_; // by media type
};

// Key of an item whose track and position are known. Its `sourcetrack` decides about the type,
// where it states one.
LinkKey KeyOfItem(ConstHandle item, const LinkKey& onTrack);

} // namespace XPJ

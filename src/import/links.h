// Links between track items: documents state them item by item, projects as groups.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

#include <array>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

// The items of one sequence as its `link`s name them.
class LinkIndex {
public:
    LinkIndex() = default;
    LinkIndex(ObjectHandle sequence, int sequenceNumber);

    // Key of the item that a `link` names, by id where it states one, else by place.
    LinkKey TargetOf(ObjectHandle link) const;
    // The item at a place; null if there is none.
    ObjectHandle ItemAt(const LinkKey& key) const;

private:
    void AddTracks(ObjectHandle medium, MediaType type);

    int sequenceNumber_ = 0;
    std::unordered_map<std::string_view, LinkKey> byId_;
    using Tracks = std::vector<std::vector<ObjectHandle>>;
    std::array<Tracks, 2> items_; // by media type, track, position
};

// True for the children of a track that count as positions.
bool IsTrackItem(ObjectHandle child);

// Key of an item at a place. Its `sourcetrack` decides about the type, where it states one.
LinkKey KeyOfItem(ObjectHandle item, MediaType trackType, int sequenceNumber, int track,
                  int position);

// Enters a translated item under its key and, unless an earlier item did so, the group that its
// `link`s make.
void AddLinkRecord(ImportState& state, const LinkIndex& index, ObjectHandle item,
                   const LinkKey& key, ObjectHandle trackItem);

struct LinkedItem {
    LinkKey key;
    ObjectHandle trackItem;
};
// A group that no `link` states.
void AddLinkGroup(ImportState& state, const std::vector<LinkedItem>& items);

// Makes the `Link`s of every sequence from the recorded groups.
void LinkPass(ImportState& state);

} // namespace XPJ

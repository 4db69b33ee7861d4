// The items beside a transition.
#pragma once

#include "import/track_context.h"
#include "tree/object.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

namespace XPJ {

// The items of a project track by `Start`, in ticks; those that start together in the order in
// which they were made.
using ItemsByStart = std::map<std::pair<Ticks, std::uint64_t>, ObjectHandle>;
ItemsByStart ItemsByStartOf(ObjectHandle projectTrack);

// The items that a transition leads from and to. A delta is what an item lacks to extend as far as
// the transition, in ticks: above 0 at the end of the outgoing one, below 0 at the start of the
// incoming one.
struct Neighbours {
    ObjectHandle outgoing;
    ObjectHandle incoming;
    Ticks outgoingDelta = 0;
    Ticks incomingDelta = 0;
};
Neighbours FindNeighbours(const ItemsByStart& items, Ticks start, Ticks end,
                          const TransitionAlignment& alignment);

// Lengthens an item to where a transition ends, with an issue: by a negative `delta` (ticks) at its
// start, by a positive one at its end. A start goes no further than there are media before it, so
// that video and audio stay in sync.
struct Extension {
    ObjectHandle trackItem;
    Ticks delta = 0;
};
void ExtendNeighbour(const TrackContext& context, ItemsByStart& items, Extension extension,
                     std::string_view transitionName);

} // namespace XPJ

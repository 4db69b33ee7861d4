// The items beside a transition.
#pragma once

#include "import/tracks.h"
#include "model/object.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

namespace XPJ {

// The items of a project track by `Start`, in ticks; those that start together in the order in
// which they were made.
using ItemsByStart = std::map<std::pair<Ticks, std::uint64_t>, ObjectHandle>;
ItemsByStart ItemsOfTrack(ObjectHandle projectTrack);

// Lengthens an item to where a transition ends, with a finding: by a negative `delta` (ticks) at
// its start, by a positive one at its end.
void ExtendNeighbour(const TrackContext& context, ItemsByStart& items, ObjectHandle trackItem,
                     Ticks delta, std::string_view transitionName);

} // namespace XPJ

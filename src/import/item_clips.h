// SubClip: the part of a master clip that a track item shows.
#pragma once

#include "xmeml/item_times.h"
#include "import/tracks.h"
#include "tree/object.h"

namespace XPJ {

// Null when the item has no master with a clip of the kind.
ObjectHandle MakeVideoSubClip(const TrackContext& context, ObjectHandle item,
                              const ItemTimes& times, const ItemRates& rates);
ObjectHandle MakeAudioSubClip(const TrackContext& context, ObjectHandle item, int channelType,
                              const ItemTimes& times, const ItemRates& rates);

// Hangs the clip ids of all items on their masters, once all items are there.
void AttachClipIds(ImportState& state);

} // namespace XPJ

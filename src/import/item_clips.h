// SubClip: the part of a master clip that a track item shows.
#pragma once

#include "import/track_context.h"
#include "xmeml/item_times.h"

#include <vector>

namespace XPJ {

// The times of an item, none of which is missing any more, with the rates in which they count.
struct ItemTiming {
    ItemTimes times;
    ItemRates rates;
};

// Null when the item has no master with a clip of the type.
ObjectHandle MakeVideoSubClip(const TrackContext& track, const ClipItem& item,
                              const ItemTiming& timing);
ObjectHandle MakeAudioSubClip(const TrackContext& track, const ClipItem& item, int channelType,
                              const ItemTiming& timing);

// The source that an item at a rate shows of a master's. Every item of a nested sequence has one of
// its own.
ObjectHandle SourceForItem(Document& document, SequenceCatalog& sequences, MediaType type,
                           ObjectHandle source, Ticks rateTicks);

// Appends all channels that an adaptive type may have to an AudioClip; those that the master lacks
// are silent.
void AddAdaptiveChannels(Document& document, const std::vector<MasterChannel>& channels,
                         ObjectHandle audioClip);

} // namespace XPJ

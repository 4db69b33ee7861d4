// SubClip: the part of a master clip that a track item shows.
#pragma once

#include "import/track_context.h"

#include <vector>

namespace XPJ {

ObjectHandle MakeVideoSubClip(const ItemContext& item);
ObjectHandle MakeAudioSubClip(const ItemContext& item, int channelType);

// The source that an item at a rate shows of a master's. Every item of a nested sequence has one of
// its own.
ObjectHandle SourceForItem(Document& document, SequenceCatalog& sequences, MediaType type,
                           ObjectHandle source, Ticks rateTicks);

// Appends all channels that an adaptive type may have to an AudioClip; those that the master lacks
// are silent.
void AddAdaptiveChannels(Document& document, const std::vector<MasterChannel>& channels,
                         ObjectHandle audioClip);

} // namespace XPJ

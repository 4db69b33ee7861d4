// Items of sound tracks.
#pragma once

#include "export/track_context.h"

#include <cstdint>

namespace XPJ::RVX {

// What of an item goes onto a written track.
struct ItemChannel {
    int channel = 0; // from 0, of the project's track
    bool isExploded = false;
};

// The channels of its track that an item plays, a bit for each; an item that states none plays the
// first.
std::uint32_t UsedChannels(ConstHandle item);

// Translates one channel of an item with the transitions that stand at it onto its track.
void TranslateAudioItem(ExportContext& context, TrackPlace& track, ConstHandle item,
                        const ItemChannel& channel);

} // namespace XPJ::RVX

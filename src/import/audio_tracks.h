// Audio tracks and master tracks with their faders.
#pragma once

#include "project/tracks.h"

namespace XPJ {

// Unlocked and audible, with a neutral fader.
ObjectHandle MakeTrackWithFader(Document& document, AudioTrackFields fields);

// Ends a group of `trackCount` tracks with its master track, which has a neutral fader.
void AddMasterWithFader(Document& document, const AudioGroup& group, int trackCount, int groupType,
                        Ticks sampleTicks);

} // namespace XPJ

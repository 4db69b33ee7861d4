// Items of a track: `clipitem`s and `generatoritem`s.
#pragma once

#include "import/track_context.h"

namespace XPJ {

// Null, mostly with an issue, for an item that has no valid times or no master.
ObjectHandle TranslateVideoItem(const TrackContext& track, const ClipItem& item);
// `trackType` is the ChannelType of the track.
ObjectHandle TranslateAudioItem(const TrackContext& track, const ClipItem& item, int trackType);

} // namespace XPJ

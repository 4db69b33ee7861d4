// Items of a track: `clipitem`s and `generatoritem`s.
#pragma once

#include "import/track_context.h"

namespace XPJ {

// Null, mostly with an issue, for an item that has no valid times or no master.
ObjectHandle TranslateVideoItem(const TrackContext& track, const ClipItem& element);
// `trackType` is the ChannelType of the track.
ObjectHandle TranslateAudioItem(const TrackContext& track, const ClipItem& element, int trackType);

} // namespace XPJ

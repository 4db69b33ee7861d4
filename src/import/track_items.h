// Items of a track: `clipitem`s and `generatoritem`s.
#pragma once

#include "xmeml/item_times.h"
#include "import/tracks.h"
#include "tree/object.h"

namespace XPJ {

// Null, mostly with a finding, for an item that has no place or no master.
ObjectHandle TranslateVideoItem(const TrackContext& context, ObjectHandle item);
// `trackType` is the ChannelType of the track.
ObjectHandle TranslateAudioItem(const TrackContext& context, ObjectHandle item, int trackType);

// A finding at an item that starts at a frame of the sequence.
void AddItemIssue(const TrackContext& context, ObjectHandle item, Frames start, ImportIssue kind);

} // namespace XPJ

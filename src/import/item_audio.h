// Levels, filters and pan of sound items, and the levels of the tracks that they lie on.
#pragma once

#include "xmeml/item_times.h"
#include "import/tracks.h"
#include "tree/object.h"

namespace XPJ {

// Hangs the chain of an item that starts at a frame of its sequence, and its panner if it has one,
// on the AudioClipTrackItem made of it.
void AddItemSound(const TrackContext& context, ObjectHandle item, Frames start, int channelType,
                  int trackType, ObjectHandle trackItem);

// Moves the fader of a project's track as the level filter of a `track` says.
void ApplyTrackLevel(const TrackContext& context, ObjectHandle track, ObjectHandle result);
// The same for the master track, whose level stands on the `audio` of a sequence.
void ApplyMasterLevel(const SequenceContext& context, ObjectHandle audio, ObjectHandle masterTrack);

} // namespace XPJ

// The tracks of a sequence and the groups that hold them.
#pragma once

#include "import/track_context.h"
#include "project/tracks.h"

namespace XPJ {

// ---- Audio tracks and master tracks with their faders

// Unlocked and audible, with a neutral fader.
ObjectHandle MakeTrackWithFader(Document& document, AudioTrackFields fields);

// Ends a group of `trackCount` tracks with its master track, which has a neutral fader.
void AddMasterWithFader(Document& document, const AudioGroup& group, int trackCount, int groupType,
                        Ticks sampleTicks);

// ---- The tracks of a sequence

// `VideoTrackGroup` and `AudioTrackGroup` with all tracks of a sequence. A group without tracks
// gets an empty one. `outputs` is the number of channels that the audio is mixed to.
ObjectHandle TranslateVideoTracks(SequenceContext& context, ConstHandle video);
ObjectHandle TranslateAudioTracks(SequenceContext& context, ConstHandle audio, int outputs);

} // namespace XPJ

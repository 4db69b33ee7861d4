// The tracks of a sequence and the groups that hold them.
#pragma once

#include "import/track_context.h"

namespace XPJ {

// `VideoTrackGroup` and `AudioTrackGroup` with all tracks of a sequence. A group without tracks
// gets an empty one. `outputs` is the number of channels that the audio is mixed to.
ObjectHandle TranslateVideoTracks(SequenceContext& context, ConstHandle video);
ObjectHandle TranslateAudioTracks(SequenceContext& context, ConstHandle audio, int outputs);

} // namespace XPJ

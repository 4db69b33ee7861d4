// Groups and tracks of audio. A project's track carries several channels, a written one carries
// one: each track is exploded into as many as it has channels, except in the hand-off document.
//
//   of the project     written                         in a hand-off
//   track 1, stereo    tracks 1 (left), 2 (right)      track 1 with 2 channels
//   track 2, mono      track 3                         track 2
#pragma once

#include "export/tracks.h"

namespace XPJ::RVX {

// Adds the `audio` of an AudioTrackGroup to a `media`, with its outputs and its empty tracks.
std::vector<OpenTrack> TranslateAudioGroup(ExportContext& context, const SequenceContext& sequence,
                                           ConstHandle group, ObjectHandle media);

} // namespace XPJ::RVX

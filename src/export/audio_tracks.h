// Groups and tracks of audio. A project's track carries several channels, a written one carries
// one: each track is exploded into as many as it has channels, except in the hand-off document.
//
//   project            document                        hand-off
//   1 stereo           1 left of 1, 2 right of 1       1 with 2 channels
//   2 mono             3                               2
#pragma once

#include "export/tracks.h"

namespace XPJ::RVX {

// Adds the `audio` of an AudioTrackGroup to a `media`, with its outputs and its empty tracks.
std::vector<OpenTrack> TranslateAudioGroup(ExportContext& context, const SequenceContext& sequence,
                                           ConstHandle group, ObjectHandle media);

} // namespace XPJ::RVX

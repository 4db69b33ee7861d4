// Groups and tracks of sound. A project's track carries several channels, a written one carries
// one: each track is exploded into as many as it has channels, except in the hand-off form.
#pragma once

#include "export/track_context.h"

#include <string_view>

namespace XPJ::RVX {

// The `audio` of an AudioTrackGroup, with its outputs and its tracks.
ObjectHandle TranslateAudioGroup(ExportContext& context, const SequencePlace& sequence,
                                 ConstHandle group);

// A param of the fader of a track or of a group's master track; null without one.
//   FaderParam(AudioTrackOf(track), "Mute")
ConstHandle FaderParam(ConstHandle audioTrack, std::string_view name);

} // namespace XPJ::RVX

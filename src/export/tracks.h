// Groups and tracks of picture, and what all tracks have in common.
#pragma once

#include "export/track_context.h"

namespace XPJ::RVX {

// The `video` of a VideoTrackGroup, with its format and its tracks.
ObjectHandle TranslateVideoGroup(ExportContext& context, const SequencePlace& sequence,
                                 ConstHandle group);

// Writes `locked`, `enabled` and the user's targeting of a project track.
void WriteTrackState(ConstHandle projectTrack, bool isOff, ObjectHandle track);

} // namespace XPJ::RVX

// Transitions of a track.
#pragma once

#include "import/tracks.h"
#include "tree/object.h"

namespace XPJ {

// Translates the `transitionitem`s of a `track` once its other items stand on `projectTrack`. Each
// hangs at the tail of the item that it leads from and at the head of the one that it leads to; an
// item that ends short of it is extended, with a finding.
void TranslateTransitions(const TrackContext& context, ObjectHandle track,
                          ObjectHandle projectTrack);

} // namespace XPJ

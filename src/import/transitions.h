// Transitions of a track.
#pragma once

#include "import/track_context.h"
#include "tree/object.h"

namespace XPJ {

// Translates the `transitionitem`s of a `track` once its other items are on `projectTrack`. Each is
// the tail of the item that it leads from and the head of the one that it leads to; an item that
// ends short of it is extended, with an issue.
void TranslateTransitions(const TrackContext& context, ConstHandle track,
                          ObjectHandle projectTrack);

} // namespace XPJ

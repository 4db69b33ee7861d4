// Transitions of video and audio.
#pragma once

#include "export/track_context.h"

namespace XPJ::RVX {

// Where in its sequence a document has the cut of a transition.
Ticks WrittenCut(ConstHandle transition);

// Adds the `transitionitem` of a project transition to its track; one of an unknown kind becomes a
// plain dissolve or fade, with an issue.
void TranslateTransition(ExportContext& context, TrackContext& track, ConstHandle transition);

} // namespace XPJ::RVX

// Transitions of picture and sound.
#pragma once

#include "export/track_context.h"

namespace XPJ::RVX {

// Adds the `transitionitem` of a project transition to its track; one of an unknown kind becomes a
// plain dissolve or fade, with a finding.
void TranslateTransition(ExportContext& context, TrackPlace& track, ConstHandle transition);

} // namespace XPJ::RVX

// Names that users gave: of labels and tracks.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Makes the label of Final Cut's own list the one that the import reads, where that is blank.
//   labels(label Good Take, label2) -> labels(label2 Good Take)
void ReadFinalCutLabels(DialectPass& pass);

// Gives tracks the name that they state as the host's.
//   track(name Dialog) -> track(MZ.TrackName Dialog)
void NameTracks(DialectPass& pass);

} // namespace XPJ

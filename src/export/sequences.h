// Sequences, written where they are first met: in the browser or in an item that shows them.
//
// A sequence in a sequence is not a call in a call: the items of a sequence report what they show,
// and a list of the sequences that are being written takes it up before the next item. Ids are
// thus numbered in the order of the document.
//
//   sequence-1  clipitem-1  clipitem-2 [sequence-2  clipitem-3]  clipitem-4
#pragma once

#include "export/catalogs.h"
#include "export/track_context.h"

#include <vector>

namespace XPJ::RVX {

// The `sequence` of a project Sequence with all that it shows, in the document's unit of times and
// not attached yet. Sequences nested too deep to be where they are shown are added to `postponed`;
// the browser writes them behind its own, where they may postpone others. DocumentFault for frames
// of no length.
ObjectHandle TranslateSequence(ExportContext& context, Catalogs& catalogs,
                               const ShownSequence& shown, std::vector<ShownSequence>& postponed);

// Ticks a frame of a sequence's video; 29.97 for one without video. May be 0.
Ticks FrameTicksOfSequence(ConstHandle sequence);

} // namespace XPJ::RVX

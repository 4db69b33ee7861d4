// Sequences, written where they are first met: in the browser or in an item that shows them.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// The `sequence` of a project Sequence, in the document's form of times and not attached yet. Its
// id is in `context.sequenceIds` from the start, so that what it holds may refer back to it.
// `masterClip` is the master that leads to it here. DocumentFault for frames of no length.
ObjectHandle TranslateSequence(ExportContext& context, ConstHandle sequence,
                               ConstHandle masterClip);

// Gives a clip item the sequence that it shows, as a child or as the reference `sequenceid`.
void TranslateNestedSequence(ExportContext& context, ConstHandle sequence, ConstHandle masterClip,
                             ObjectHandle clipItem);

// Sequences nested too deep to stand where they are shown follow the browser's own: adds them to a
// `children`. To be called after each sequence that the browser translates.
void TranslatePostponedSequences(ExportContext& context, ObjectHandle children);

// Ticks a frame of a sequence's picture; 29.97 for one without video. May be 0.
Ticks FrameTicksOfSequence(ConstHandle sequence);

} // namespace XPJ::RVX

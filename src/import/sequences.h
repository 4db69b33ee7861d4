// Sequences: their content, and the project items that show them.
#pragma once

#include "core/ticks.h"
#include "import/import_state.h"

namespace XPJ {

// The `samplecharacteristics` of a sequence's picture: the format of what states none itself. May
// be null.
ObjectHandle CharacteristicsOf(ObjectHandle sequence);

// True for a sequence that only wraps a still frame: its first video item has a
// `stillframeoffset`. Such a sequence becomes no sequence of the project.
bool IsStillSequence(ObjectHandle sequence);

struct SequenceRates {
    Ticks video = kNtscFrameTicks; // a frame
    Ticks audio = kSampleTicks48k; // a sample
    Ticks edges = kNtscFrameTicks; // unit of item edges: a frame, in an audio hand-off a tick
};
SequenceRates RatesOfSequence(const ImportState& state, ObjectHandle sequence);

// The channels that a sequence's sound ends in; 0 if it doesn't tell.
int OutputChannelsOf(ObjectHandle sequence);

// The MasterClip around a new, empty Sequence for a `sequence` met in the collect pass; null where
// none can be made.
ObjectHandle MasterOfCollectedSequence(ImportState& state, ObjectHandle sequence);

// Normalises the item times of a `sequence`, translates what its items refer to into `parentItem`,
// then fills its Sequence and adds its project item there. Sequences that its items hold go first,
// in the same bin. One that was translated before, or is on its way, stays as it is.
void TranslateSequence(ImportState& state, ObjectHandle sequence, ObjectHandle parentItem);

// Fills, into the root, the sequences and multiclips that items show and nothing has filled: those
// that only the angles of a multiclip lead to.
void TranslateShownSequences(ImportState& state, ObjectHandle rootItem);

// The source that an item at a rate shows of a master's. Every item of a nested sequence has one of
// its own.
ObjectHandle SourceForItem(ImportState& state, MediaType type, ObjectHandle source,
                           Ticks rateTicks);

// Gives a Sequence its `uid` and `ID`, which is returned; 0, and nothing happens, if it has them.
int BeginSequence(ImportState& state, ObjectHandle projectSequence);

// Fills the Sequence behind the `master` of a `sequence` element. False if it was filled before or
// has no frame size.
bool FillSequence(ImportState& state, ObjectHandle sequence, ObjectHandle master);

} // namespace XPJ

// Tracks of a sequence as a document states them.
#pragma once

#include "tree/object.h"

#include <string_view>
#include <vector>

namespace XPJ {

// True for the children of a `track` that count as positions: clips, generators, transitions.
bool IsTrackItem(ConstHandle child);

// The `velaTrackType` of an exploded track; empty without one. A mono track alone is not exploded.
std::string_view ExplodedTypeOf(ConstHandle track);

// True for a `track` that only carries further channels of the track before it.
bool IsContinuationTrack(ConstHandle track);

// An audio `track` with the numbers, from 1, of itself and of the continuations that follow it.
struct AudioTrackRange {
    ConstHandle track;
    int number = 0;
    int lastNumber = 0;
};
std::vector<AudioTrackRange> AudioTracksOf(ConstHandle audio);

} // namespace XPJ

// Sequences as documents state them.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"
#include "xmeml/rates.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// The `samplecharacteristics` of a sequence's video: the format of what states none itself. May be
// null.
ConstHandle CharacteristicsOf(ConstHandle sequence);

// True for a sequence that only wraps a still frame: its first video item has a
// `stillframeoffset`. Such a sequence becomes no sequence of the project.
bool IsStillSequence(ConstHandle sequence);

// True where multichannel audio is on several mono tracks.
bool IsExploded(ConstHandle sequence);

// The number of channels that a sequence's audio is mixed to; 0 if it states none.
int OutputChannelsOf(ConstHandle sequence);

// Name and timecode of a `sequence`, by which reports locate its items. Read once, since a sequence
// with many markers is wide.
struct SequenceTimecode {
    std::string_view name = {};     // of the sequence
    std::uint64_t node = 0;         // its identity
    Ticks edges = kNtscFrameTicks;  // unit of item edges
    Ticks frames = kNtscFrameTicks; // a frame
    Frames first = 0;               // number of the first one
    std::int64_t base = 30;         // numbers a second
    bool drop = true;

    // Of an edge, in units of edges.
    std::string TextOf(Frames edge) const;
    // The whole frame that the edge is in.
    Frames FrameOf(Frames edge) const;
};
SequenceTimecode TimecodeOfSequence(ConstHandle sequence, const SequenceRates& rates);

} // namespace XPJ

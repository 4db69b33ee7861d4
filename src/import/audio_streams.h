// The sound of one `file`: how its `audio` elements are split into streams.
#pragma once

#include "import/streams.h"

namespace XPJ {

// What picture and sound of a file have in common.
struct StreamRange {
    Ticks duration = 0;
    Boundaries boundaries;
};

// Appends the sound of `file` to `sources`. Where the picture's Media is there it carries the first
// stream, and the marks of its camera format decide the split.
void AddAudioStreams(const ImportState& state, ObjectHandle file, const StreamRange& range,
                     FileSources& sources);

} // namespace XPJ

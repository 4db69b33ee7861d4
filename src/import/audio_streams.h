// The audio of one `file`: how its `audio` elements are split into streams.
#pragma once

#include "import/import_state.h"
#include "project/media.h"
#include "xmeml/files.h"

namespace XPJ {

// Appends the audio of `file` to `sources`, with the duration and boundaries of `range`. The Media
// of the video, where there is one, carries the first stream, and its codec decides the split.
void AddAudioStreams(const ImportState& state, FileElement file, const SourceFields& range,
                     MediaSources& sources);

} // namespace XPJ

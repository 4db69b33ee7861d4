// The audio of a `file` as its `audio` elements state it.
#pragma once

#include "core/channel_types.h"
#include "core/ticks.h"
#include "xmeml/files.h"

namespace XPJ {

// What the `media` of a file states of its audio as a whole.
AudioKind AudioKindOfFile(FileElement file);

// Channels of one `audio`, within what media may have; 0 for an empty element, which means plain
// stereo.
int ChannelsOfAudio(ConstHandle audio);

// Ticks a sample of an `audio`; 0 for a useless rate.
Ticks SampleTicksOfAudio(ConstHandle audio);

} // namespace XPJ

// Media of a title: a title document that the host's title importer draws.
#pragma once

#include "effects/title_reader.h"
#include "xmeml/formats.h"
#include "import/streams.h"

namespace XPJ {

// Media and video source of a title. `frameTicks` is the generator's, ticks a frame.
FileSources MakeTitleSources(const ImportState& state, const Title& title, Ticks frameTicks,
                             const FrameFormat& frame);

} // namespace XPJ

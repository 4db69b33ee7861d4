// Media without a file: pictures that the host makes. The path of such a Media is the number of its
// kind.
#pragma once

#include "xmeml/formats.h"
#include "import/streams.h"

#include <cstdint>

namespace XPJ {

enum class SyntheticKind { BarsAndTone, BlackVideo, ColorMatte, Graphic, TransparentVideo };

// Media and sources of a kind; bars and tone have sound too. `frameTicks` (ticks a frame) and
// `frame` don't count for black and transparent video, which fit any sequence.
FileSources MakeSyntheticSources(const ImportState& state, SyntheticKind kind, Ticks frameTicks,
                                 const FrameFormat& frame);

// Stores a matte's colour, channels of 0 to 255, in the Media.
struct MatteColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;
};
void SetMatteColor(const MatteColor& color, ObjectHandle media);

} // namespace XPJ

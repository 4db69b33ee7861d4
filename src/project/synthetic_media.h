// Media without a file: video that the host generates. The path of such a Media is the number of
// its kind.
#pragma once

#include "project/media.h"
#include "project/media_kinds.h"

#include <cstdint>

namespace XPJ {

// Media and sources of a kind that the host generates, other than a title; bars and tone have audio
// too. `frameTicks` (ticks a frame) and `frame` don't count for black and transparent video, which
// fit any sequence.
MediaSources MakeSyntheticSources(Document& document, MediaKind kind, Ticks frameTicks,
                                  const FrameFormat& frame);

// Stores the color of a matte, channels of 0 to 255, in its Media.
struct MatteColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;
};
void SetMatteColor(const MatteColor& color, ObjectHandle media);

} // namespace XPJ

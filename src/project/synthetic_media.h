// Media without a file: video that the host generates. The path of such a Media is the number of
// its kind.
#pragma once

#include "project/media.h"
#include "project/media_kinds.h"

namespace XPJ {

// Media and sources of a kind that the host generates, other than a title; bars and tone have audio
// too. `frameTicks` (ticks a frame) and `frame` don't count for black and transparent video, which
// fit any sequence.
MediaSources MakeSyntheticSources(Document& document, MediaKind kind, Ticks frameTicks,
                                  const FrameFormat& frame);

// Stores the color of a matte in its Media. Channels are numbers of 0 to 255; what a larger one has
// beyond its byte goes into the next.
struct MatteColor {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;
};
void SetMatteColor(const MatteColor& color, ObjectHandle media);

} // namespace XPJ

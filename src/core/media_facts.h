// What a document or the header of a media file states of the media; what is not stated is 0 or
// nothing.
#pragma once

#include "core/ticks.h"

#include <optional>

namespace XPJ {

struct MediaFacts {
    int width = 0; // of the frame, in pixels
    int height = 0;
    Ticks frameTicks = 0;            // of a frame
    Ticks length = 0;                // of the whole file
    std::optional<Ticks> start = {}; // timecode of the first frame
    int sampleRate = 0;              // samples a second
    int channels = 0;

    friend bool operator==(const MediaFacts&, const MediaFacts&) = default;
};

} // namespace XPJ

// The format of video: size, pixel aspect, fields, codec, alpha channel.
#pragma once

#include "core/ticks.h"
#include "effects/effect_context.h"

#include <string_view>

namespace XPJ::RVX {

// A format as a VideoStream or a VideoTrackGroup states it.
struct VideoFormat {
    Ticks frameTicks = kNtscFrameTicks;
    std::string_view frameRect;                   // "0,0,1920,1080"
    std::string_view pixelAspect = "1,1";         // width, height
    std::string_view originalPixelAspect = "1,1"; // before the user overrode it
    std::string_view fieldType = "0";             // 0 none, 1 upper field first, else lower
};

// Width and height from the four numbers of a rect; 0 where there are fewer.
FrameSize FrameSizeOf(std::string_view frameRect);

// The ratio "n,d" of a VideoStream before the user overrode it, and the one that holds.
std::string_view OriginalPixelAspectOf(ConstHandle videoStream);
std::string_view PixelAspectOf(ConstHandle videoStream);

// `samplecharacteristics` with `rate`.
ObjectHandle WriteSampleCharacteristics(Document& document, const VideoFormat& format);

// The one codec of every exported sequence.
ObjectHandle WriteCodec(Document& document);

// Writes `alphatype` of a VideoStream on a clip item.
void WriteAlpha(ConstHandle videoStream, ObjectHandle clipItem);

} // namespace XPJ::RVX

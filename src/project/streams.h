// The project objects that make up a medium: streams, media sources, channel layouts.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "xmeml/formats.h"
#include "tree/object.h"

#include <limits>
#include <string>
#include <string_view>

namespace XPJ {

// Length of pictures without an end: 12 hours.
constexpr Ticks kEndlessDuration = 10973491200000000;
// Frame length of a picture that has none of its own.
constexpr Ticks kAnyFrameTicks = std::numeric_limits<Ticks>::max();

// How the channels of a medium are held. The numbers are part of the format of channel groups.
enum ChannelKind : int {
    kUnknownChannels = -1,
    kMono = 0,
    kStereo = 1,
    kSurround51 = 2,
    kStereoPair = 6, // held as two mono elements
    kAdaptive = 7,   // any number
};

// Text of an `AudioChannelLayout`; `channels` counts for kinds without a fixed number.
std::string ChannelLayoutText(int kind, int channels);

// A still picture that the host makes, or one with layers, differs from recorded footage in codec,
// alpha and the lack of a time base.
enum class PictureKind { Recorded, Generated };

struct PictureStream {
    PictureKind kind = PictureKind::Recorded;
    Ticks frameTicks = 0;
    Ticks duration = 0;
    FrameFormat frame;
    std::string_view fieldType = "0";
    bool isStill = false;
};

ObjectHandle MakeVideoStream(Document& document, const PictureStream& stream);

// Ticks a sample; ticks.
ObjectHandle MakeAudioStream(Document& document, Ticks sampleTicks, Ticks duration, int kind,
                             int channels);

// Part of a medium that a source is limited to, in ticks.
struct Boundaries {
    Ticks start = kNoTime;
    Ticks end = kNoTime;
    bool hard = true;
};

// A VideoMediaSource or AudioMediaSource around `media`. `rateTicks` is a frame's or a sample's.
ObjectHandle MakeMediaSource(Document& document, MediaType type, ObjectHandle media,
                             Ticks rateTicks, Ticks duration, const Boundaries& boundaries = {});

} // namespace XPJ

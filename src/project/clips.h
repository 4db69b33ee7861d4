// Builders of clips: of a master clip, or of a track item that shows a part of one.
#pragma once

#include "tree/object.h"

#include <cstdint>

namespace XPJ {

// What distinguishes the clip of a track item from that of a master.
struct ClipFields {
    double speed = 1.0;
    bool playBackwards = false;
    bool inUse = false;
    bool scaleToFrameSize = false; // video only
    bool frameBlending = false;    // video only
};

// A VideoClip or AudioClip of a source, at the source's rate; without points, markers and channels.
ObjectHandle MakeVideoClip(Document& document, ObjectHandle source, const ClipFields& fields = {});
ObjectHandle MakeAudioClip(Document& document, ObjectHandle source, const ClipFields& fields = {});

// A VideoClip in use with an empty marker list.
ObjectHandle MakePlainVideoClip(Document& document, ObjectHandle source);

// Appends a channel to an AudioClip; a null `content` is a silent channel.
inline constexpr std::uint64_t kNoChannel = ~std::uint64_t{0};
void AddChannel(Document& document, ObjectHandle audioClip, std::uint64_t channelIndex,
                ObjectHandle content);

} // namespace XPJ

// Panners: how the channels of a track or item are sent to those of the audio track group.
#pragma once

#include "core/channel_types.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// `NextPannerID` of whatever has one panner.
constexpr std::string_view kNextPannerId = "4294967279";

struct PannerFields {
    int trackType = kStereoType;
    int groupType = kStereoType;
    int groupChannels = 2; // `NumAdaptiveChannels` of the group
    Ticks sampleTicks = kSampleTicks48k;
    int outputChannel = -1; // `outputchannelindex` of the track, from 1; -1: not stated
    bool handoff = false;   // the document is an audio hand-off
};

// The neutral panner of an audio track.
ObjectHandle MakeTrackPanner(Document& document, const PannerFields& fields);

// The panner of a mono item on a stereo track, with its `pan` parameter; null without one.
ObjectHandle MakeItemPanner(Document& document, ObjectHandle pan, Ticks sampleTicks);

// The neutral panner from one channel type to another.
ObjectHandle MakeDefaultPanner(Document& document, int inputType, int outputType,
                               Ticks sampleTicks);

} // namespace XPJ

// Panners: how the channels of a track or item reach those of the audio track group.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Channels of a track, an item or an audio track group. The numbers are part of the format.
enum ChannelType : int { kMonoType = 0, kStereoType = 1, kSurroundType = 2, kAdaptiveType = 3 };

// The most channels that an adaptive type may have.
constexpr int kMaxAdaptiveChannels = 32;

// The most channels that a track or an item of a type may have.
int ChannelCountOf(int channelType);

// `NextPannerID` of whatever has one panner.
constexpr std::string_view kNextPannerId = "4294967279";

struct PannerForm {
    int trackType = kStereoType;
    int groupType = kStereoType;
    int groupChannels = 2; // `NumAdaptiveChannels` of the group
    Ticks sampleTicks = kSampleTicks48k;
    int outputChannel = -1; // `outputchannelindex` of the track, from 1; -1: not stated
    bool handoff = false;   // the document is an audio hand-off
};

// The panner of an audio track, at rest.
ObjectHandle MakeTrackPanner(Document& document, const PannerForm& form);

// The panner of a mono item on a stereo track, with its `pan` parameter; null without one.
ObjectHandle MakeItemPanner(Document& document, ObjectHandle pan, Ticks sampleTicks);

// The panner that changes nothing, from one channel type to another.
ObjectHandle MakeDefaultPanner(Document& document, int inputType, int outputType,
                               Ticks sampleTicks);

} // namespace XPJ

// How a master's sound is laid out: channels of its clips, and the groups that the host shows.
#pragma once

#include "import/streams.h"
#include "tree/object.h"

namespace XPJ {

// Channels of a wide multiclip, and the most that an adaptive track has.
inline constexpr int kWideChannels = 32;

// Channels of one AudioClip of that kind; 0 for an unknown kind.
int ChannelsOfClip(const AudioKind& sound, bool isWide);

struct ChannelLayout {
    int kind = kUnknownChannels;
    int channels = 0;       // of all clips
    bool isOneClip = false; // mono channels are those of one clip, not one clip each
};

// A ClipChannelGroupVectorSerializer, the `AudioClipChannelGroups` of a master.
ObjectHandle MakeChannelGroups(Document& document, const ChannelLayout& layout);

} // namespace XPJ

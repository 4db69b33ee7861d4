// The layout of a master's audio: channels of its clips, and the groups that the host shows.
#pragma once

#include "core/channel_types.h"
#include "tree/object.h"

namespace XPJ {

// Channels of one AudioClip of a kind; 0 for an unknown kind. An adaptive clip that is wide has all
// the channels that there may be.
int ChannelsOfClip(const AudioKind& audio, bool isWide);

struct ChannelGroups {
    int kind = kUnknownChannels;
    int channels = 0;       // of all clips
    bool isOneClip = false; // mono channels are those of one clip, not one clip each
};

// A ClipChannelGroupVectorSerializer, the `AudioClipChannelGroups` of a master.
ObjectHandle MakeChannelGroups(Document& document, const ChannelGroups& fields);

} // namespace XPJ

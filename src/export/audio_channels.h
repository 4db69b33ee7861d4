// Channels of audio: how those of a master lie together, which of them an item plays, and to which
// outputs tracks send theirs.
#pragma once

#include "core/channel_types.h"
#include "project/accessors.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace XPJ::RVX {

// ---- Masters

constexpr int kMonoLayout = 0;

// `type` as documents state it: 0 mono, 1 stereo, 2 5.1, 6 stereo pairs of mono channels,
// 7 adaptive.
struct ChannelLayout {
    int count = 0; // 0: the master states none
    int type = kMonoLayout;
};

// The layout of the channels that a master's clips use.
ChannelLayout ChannelLayoutOf(MasterClip masterClip);
// Writes `channelcount` and `channeltype` of a stated layout.
void WriteChannelLayout(const ChannelLayout& layout, ObjectHandle audio);

// True for the text of an index that means no channel. Indices are unsigned in the project, so that
// -1 is also written as the largest number.
bool IsNoIndex(std::string_view index);

// ---- Items

// How many channels of its track a clip has contents for.
int ContentCount(ConstHandle audioClip);
// What a clip plays on a channel of its track; null for nothing.
ConstHandle ContentOf(ConstHandle audioClip, int channel);
// The channels of its track that an item plays, a bit for each; an item that states none plays the
// first.
std::uint32_t UsedChannels(TrackItem item);

// ---- Outputs

constexpr int kUnassigned = -1;

// The output to which a panner sends each of `count` channels, counted from 0; see
// AssignsChannels.
std::vector<int> AssignedChannels(ConstHandle panner, int count);

// True for a panner that sends a channel to several outputs or to none; of these one is written.
bool AssignsManyOutputs(ConstHandle panner);

// Numbers the tracks of one group with their `outputchannelindex`, counted from 1, in the order in
// which they are written.
class OutputChannels {
public:
    explicit OutputChannels(int outputs = 2) : outputs_(outputs) {}

    // For a channel that is sent to output `channel`, counted from 0. `movesOn`: the tracks behind
    // it keep clear of the output.
    int Assigned(int channel, bool movesOn);
    // For a channel of a track of several, or for a mono track by its position among all: these go
    // to left and right in turn.
    int Unassigned(int position, bool ofSeveral) const;

private:
    int outputs_;
    int running_ = 1;
};

} // namespace XPJ::RVX

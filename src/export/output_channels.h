// Which output each written track of sound is sent to.
#pragma once

#include "tree/object.h"

#include <vector>

namespace XPJ::RVX {

// The most channels that a track may have.
constexpr int kMaxChannels = 32;

constexpr int kUnassigned = -1;

// The output to which a direct panner (may be null) sends each of `count` channels, counted from 0.
std::vector<int> AssignedChannels(ConstHandle directPanProcessor, int count);

// Gives the tracks of one group their `outputchannelindex`, counted from 1, in the order in which
// they are written.
class OutputChannels {
public:
    explicit OutputChannels(int outputs = 2) : outputs_(outputs) {}

    // For a channel that is sent to output `channel`, counted from 0. `movesOn`: the tracks behind
    // it keep clear of the output.
    int Assigned(int channel, bool movesOn);
    // For a channel of a track of several, or for a mono track by its place among all: these go to
    // left and right in turn.
    int Unassigned(int position, bool ofSeveral) const;

private:
    int outputs_;
    int running_ = 1;
};

} // namespace XPJ::RVX

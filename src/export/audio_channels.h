// How the channels of a medium lie together.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ::RVX {

// `type` as documents tell it: 0 mono, 1 stereo, 2 5.1, 6 stereo pairs of mono channels,
// 7 adaptive.
struct ChannelLayout {
    int count = 0; // 0: the master states none
    int type = 0;
};

// The layout of the channels that a master's clips use.
ChannelLayout ChannelLayoutOf(ConstHandle masterClip);

// True for the text of an index that stands for no channel. Indices are unsigned in the project: -1
// also stands there as the largest number.
bool IsNoIndex(std::string_view index);

} // namespace XPJ::RVX

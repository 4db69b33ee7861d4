// Channel types of audio: their number in a project and their names in `xmeml`, for both
// directions.
#pragma once

#include <string_view>

namespace XPJ {

// `ChannelType` of a project's tracks, clips and panners.
enum ChannelType : int { kMonoType = 0, kStereoType = 1, kSurroundType = 2, kAdaptiveType = 3 };

// The most channels that a track may have: those of an adaptive one.
constexpr int kMaxTrackChannels = 32;

struct ChannelTypeRow {
    int type;
    int channels;
    std::string_view trackName; // `velaTrackType`
    std::string_view itemName;  // `velaChannelType`
};

// Any unknown number counts as mono.
const ChannelTypeRow& ChannelTypeOf(int type);
// Null for an unknown name.
const ChannelTypeRow* FindTrackType(std::string_view trackName);
const ChannelTypeRow* FindItemType(std::string_view itemName);

} // namespace XPJ

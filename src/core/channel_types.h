// How audio channels belong together: on tracks and track items (types) and in media (kinds).
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace XPJ {

// `ChannelType` of a track, a track item, an audio track group or a channel group. The numbers are
// part of the format.
enum ChannelType : int { kMonoType = 0, kStereoType = 1, kSurroundType = 2, kAdaptiveType = 3 };

// The most channels that a track may have: those of an adaptive one.
constexpr int kMaxTrackChannels = 32;

struct ChannelTypeRow {
    int type; // a ChannelType
    int channels;
    std::string_view trackName; // `velaTrackType` of a `track`
    std::string_view itemName;  // `velaChannelType` of a `clipitem`
};

// In the order of the types.
std::span<const ChannelTypeRow> ChannelTypes();
// Any unknown number counts as mono.
const ChannelTypeRow& ChannelTypeOf(int type);
// Null for an unknown name.
const ChannelTypeRow* FindTrackType(std::string_view trackName);

// The most channels that a track or an item of a type may have.
int ChannelCountOf(int channelType);

// How the channels of a media file are held. The numbers are part of the format of channel groups.
enum ChannelKind : int {
    kUnknownChannels = -1,
    kMono = 0,
    kStereo = 1,
    kSurround51 = 2,
    kStereoPair = 6, // held as two mono elements
    kAdaptive = 7,   // any number
};

// The audio of a media file as a whole.
struct AudioKind {
    int kind = kUnknownChannels; // a ChannelKind
    int channels = 0;            // of the first `audio` element
};

// Text of an `AudioChannelLayout`; `channels` counts for kinds without a fixed number.
std::string ChannelLayoutText(int kind, int channels);

} // namespace XPJ

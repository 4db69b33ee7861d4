#include "export/audio_channels.h"

#include "core/numbers.h"
#include "project/accessors.h"

#include <cstddef>
#include <set>

namespace XPJ::RVX {

namespace {

constexpr int kMono = 0;
constexpr int kStereoPairs = 6;
constexpr int kAdaptive = 7;

// `ChannelType` of a project's vector for an adaptive one.
constexpr int kAdaptiveVector = 3;

// No file has more. A damaged project may name the same channels any number of times, and every one
// would become a track whose item links to all the others.
constexpr int kMaxChannels = 64;
constexpr int kMaxChannelsRead = 4096;

struct UsedChannels {
    int count = 0;
    std::set<std::string_view> sourceClips;
};

UsedChannels CountChannels(ConstHandle masterClip)
{
    UsedChannels used;
    int read = 0;
    for (const ConstHandle vector : ChannelVectorsOf(masterClip)) {
        for (const ConstHandle channel : ChannelsOfVector(vector)) {
            if (used.count == kMaxChannels || ++read > kMaxChannelsRead)
                return used;
            const std::string_view sourceClip = channel.GetProperty("SourceClipIndex");
            if (IsNoIndex(sourceClip) || IsNoIndex(channel.GetProperty("mSourceChannelIndex")))
                continue;
            ++used.count;
            used.sourceClips.insert(sourceClip);
        }
    }
    return used;
}

int TypeOfFirstVector(ConstHandle masterClip)
{
    for (const ConstHandle vector : ChannelVectorsOf(masterClip)) {
        const int type = IntProperty(vector, "ChannelType");
        return type == kAdaptiveVector ? kAdaptive : type;
    }
    return kMono;
}

} // namespace

bool IsNoIndex(std::string_view index)
{
    return ParseInt(index) == -1 || index == "4294967295" || index == "18446744073709551615";
}

// Mono vectors alone don't say whether channels belong together: two for each source clip are its
// left and right, more of a single clip are one adaptive whole.
ChannelLayout ChannelLayoutOf(ConstHandle masterClip)
{
    const UsedChannels used = CountChannels(masterClip);
    const std::size_t sourceClips = used.sourceClips.size();
    ChannelLayout layout{used.count, TypeOfFirstVector(masterClip)};
    if (layout.type != kMono || layout.count == 0)
        return layout;
    if (static_cast<std::size_t>(layout.count) == 2 * sourceClips)
        layout.type = kStereoPairs;
    else if (sourceClips == 1 && layout.count > 1)
        layout.type = kAdaptive;
    return layout;
}

} // namespace XPJ::RVX

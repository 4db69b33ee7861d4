#include "core/channel_types.h"

#include <algorithm>

namespace XPJ {

namespace {

constexpr ChannelTypeRow kChannelTypes[] = {
    {kMonoType, 1, "Mono", "mono"},
    {kStereoType, 2, "Stereo", "stereo"},
    {kSurroundType, 6, "5.1", "5.1"},
    {kAdaptiveType, kMaxTrackChannels, "SixteenChannel", "adaptive"},
};

constexpr std::string_view kLayoutStart = "{\"SerializerWrappedObject\":[";

void AppendLabel(std::string_view label, std::string& layout)
{
    layout.append(layout.size() > kLayoutStart.size() ? "," : "");
    layout.append("{\"channellabel\":").append(label).append("}");
}

} // namespace

std::span<const ChannelTypeRow> ChannelTypes()
{
    return kChannelTypes;
}

const ChannelTypeRow& ChannelTypeOf(int type)
{
    const bool isKnown = type >= kMonoType && type <= kAdaptiveType;
    return kChannelTypes[isKnown ? type : kMonoType];
}

const ChannelTypeRow* FindTrackType(std::string_view trackName)
{
    for (const ChannelTypeRow& row : kChannelTypes)
        if (row.trackName == trackName)
            return &row;
    return nullptr;
}

int ChannelCountOf(int channelType)
{
    return kChannelTypes[std::clamp<int>(channelType, kMonoType, kAdaptiveType)].channels;
}

std::string ChannelLayoutText(int kind, int channels)
{
    constexpr std::size_t kLabelSize = 24;
    std::string layout;
    layout.reserve(kLayoutStart.size() +
                   kLabelSize * static_cast<std::size_t>(std::max(channels, 6)));
    layout = kLayoutStart;
    const bool isPair = kind == kStereo || kind == kStereoPair;
    if (isPair || (kind != kSurround51 && channels == 2))
        for (const char* label : {"100", "101"})
            AppendLabel(label, layout);
    else if (kind == kSurround51)
        for (const char* label : {"100", "101", "104", "105", "102", "103"})
            AppendLabel(label, layout);
    else
        for (int i = 0; i < channels; ++i)
            AppendLabel("0", layout);
    return layout.append("]}");
}

} // namespace XPJ

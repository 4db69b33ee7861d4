#include "project/channel_types.h"

namespace XPJ {

namespace {

constexpr ChannelTypeRow kRows[] = {
    {kMonoType, 1, "Mono", "mono"},
    {kStereoType, 2, "Stereo", "stereo"},
    {kSurroundType, 6, "5.1", "5.1"},
    {kAdaptiveType, kMaxTrackChannels, "SixteenChannel", "adaptive"},
};

} // namespace

const ChannelTypeRow& ChannelTypeOf(int type)
{
    for (const ChannelTypeRow& row : kRows)
        if (row.type == type)
            return row;
    return kRows[kMonoType];
}

const ChannelTypeRow* FindTrackType(std::string_view trackName)
{
    for (const ChannelTypeRow& row : kRows)
        if (row.trackName == trackName)
            return &row;
    return nullptr;
}

const ChannelTypeRow* FindItemType(std::string_view itemName)
{
    for (const ChannelTypeRow& row : kRows)
        if (row.itemName == itemName)
            return &row;
    return nullptr;
}

} // namespace XPJ

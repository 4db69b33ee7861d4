#include "project/channel_groups.h"

#include "core/numbers.h"

namespace XPJ {

namespace {

struct KindRow {
    int kind;
    int channelsOfClip;
    int groupSize;   // channels that are shown as one
    int channelType; // of a group
};

constexpr KindRow kKindRows[] = {
    {kMono, 1, 1, kMonoType},           {kStereo, 2, 2, kStereoType},
    {kSurround51, 6, 6, kSurroundType}, {kStereoPair, 2, 1, kMonoType},
    {kAdaptive, 0, 1, kMonoType}, // as many channels as stated
};

const KindRow* RowOf(int kind)
{
    for (const KindRow& row : kKindRows)
        if (row.kind == kind)
            return &row;
    return nullptr;
}

struct ChannelPosition {
    int clip;
    int channel; // within the clip
};

ChannelPosition PositionOf(const ChannelGroups& fields, int channel)
{
    switch (fields.kind) {
    case kStereo:
    case kStereoPair:
        return {channel / 2, channel % 2};
    case kMono:
        return fields.isOneClip ? ChannelPosition{0, channel} : ChannelPosition{channel, 0};
    default:
        return {0, channel};
    }
}

ObjectHandle MakeGroup(Document& document, const ChannelGroups& fields, const KindRow& row,
                       int first)
{
    const ObjectHandle group = document.NewObject("ClipChannelVectorSerializer");
    group.SetProperty("ChannelType", IntToString(row.channelType));
    for (int channel = first; channel < first + row.groupSize; ++channel) {
        const ChannelPosition position = PositionOf(fields, channel);
        const ObjectHandle item = document.NewObject("ClipChannelSerializer");
        item.SetProperty("SourceClipIndex", IntToString(position.clip));
        item.SetProperty("mSourceChannelIndex", IntToString(position.channel));
        group.AddChild("ClipChannelItem", item);
    }
    return group;
}

} // namespace

int ChannelsOfClip(const AudioKind& audio, bool isWide)
{
    if (audio.kind == kAdaptive)
        return isWide ? kMaxTrackChannels : audio.channels;
    const KindRow* const row = RowOf(audio.kind);
    return row ? row->channelsOfClip : 0;
}

ObjectHandle MakeChannelGroups(Document& document, const ChannelGroups& fields)
{
    const ObjectHandle groups = document.NewObject("ClipChannelGroupVectorSerializer");
    const KindRow* const row = RowOf(fields.kind);
    if (!row)
        return groups;
    // Surround audio is shown by its first clip alone.
    const int count = fields.kind == kSurround51 ? row->groupSize : fields.channels;
    for (int first = 0; first < count; first += row->groupSize)
        groups.AddChild("ClipChannelVectorItem", MakeGroup(document, fields, *row, first));
    return groups;
}

} // namespace XPJ

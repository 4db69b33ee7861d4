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
    {kMono, 1, 1, 0},       {kStereo, 2, 2, 1},   {kSurround51, 6, 6, 2},
    {kStereoPair, 2, 1, 0}, {kAdaptive, 0, 1, 0}, // as many channels as stated
};

const KindRow* RowOf(int kind)
{
    for (const KindRow& row : kKindRows)
        if (row.kind == kind)
            return &row;
    return nullptr;
}

struct ChannelPlace {
    int clip;
    int channel; // within the clip
};

ChannelPlace PlaceOf(const ChannelLayout& layout, int channel)
{
    switch (layout.kind) {
    case kStereo:
    case kStereoPair:
        return {channel / 2, channel % 2};
    case kMono:
        return layout.isOneClip ? ChannelPlace{0, channel} : ChannelPlace{channel, 0};
    default:
        return {0, channel};
    }
}

ObjectHandle MakeGroup(Document& document, const ChannelLayout& layout, const KindRow& row,
                       int first)
{
    const ObjectHandle group = document.NewObject("ClipChannelVectorSerializer");
    group.SetProperty("ChannelType", IntToString(row.channelType));
    for (int channel = first; channel < first + row.groupSize; ++channel) {
        const ChannelPlace place = PlaceOf(layout, channel);
        const ObjectHandle item = document.NewObject("ClipChannelSerializer");
        item.SetProperty("SourceClipIndex", IntToString(place.clip));
        item.SetProperty("mSourceChannelIndex", IntToString(place.channel));
        group.AddChild("ClipChannelItem", item);
    }
    return group;
}

} // namespace

int ChannelsOfClip(const AudioKind& sound, bool isWide)
{
    if (sound.kind == kAdaptive)
        return isWide ? kWideChannels : sound.channels;
    const KindRow* const row = RowOf(sound.kind);
    return row ? row->channelsOfClip : 0;
}

ObjectHandle MakeChannelGroups(Document& document, const ChannelLayout& layout)
{
    const ObjectHandle groups = document.NewObject("ClipChannelGroupVectorSerializer");
    const KindRow* const row = RowOf(layout.kind);
    if (!row)
        return groups;
    // Surround sound is shown by its first clip alone.
    const int count = layout.kind == kSurround51 ? row->groupSize : layout.channels;
    for (int first = 0; first < count; first += row->groupSize)
        groups.AddChild("ClipChannelVectorItem", MakeGroup(document, layout, *row, first));
    return groups;
}

} // namespace XPJ

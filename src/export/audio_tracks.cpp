#include "export/audio_tracks.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/audio_fader.h"
#include "effects/parameters.h"
#include "export/audio_items.h"
#include "export/output_channels.h"
#include "export/tracks.h"
#include "platform/platform.h"

#include <algorithm>
#include <bit>
#include <vector>

namespace XPJ::RVX {

namespace {

constexpr int kStereoType = 1;
constexpr int kAdaptiveType = 3;

struct ChannelTypeRow {
    int type;
    int channels;
    std::string_view name; // `velaTrackType`
};

// Any other type counts as the first.
constexpr ChannelTypeRow kChannelTypes[] = {
    {0, 1, "Mono"},
    {kStereoType, 2, "Stereo"},
    {2, 6, "5.1"},
    {kAdaptiveType, kMaxChannels, "SixteenChannel"},
};

const ChannelTypeRow& ChannelTypeOf(ConstHandle audioTrack)
{
    const int type = IntProperty(audioTrack, "ChannelType");
    for (const ChannelTypeRow& row : kChannelTypes)
        if (row.type == type)
            return row;
    return kChannelTypes[0];
}

// What the tracks of one group share.
struct AudioGroup {
    SequencePlace sequence;
    int adaptiveChannels = kMaxChannels;
    OutputChannels outputs;
    ObjectHandle audio; // the written one
    int nextNumber = 1; // of the next written track
};

struct UsedItem {
    ConstHandle item;
    std::uint32_t channels = 0; // a bit for each that it plays
};

struct AudioTrack {
    ConstHandle track;
    ConstHandle audioTrack;
    int index = 0; // from 0, in the project's group
    const ChannelTypeRow& type;
    int channels = 1; // of its type
    int exploded = 1; // into how many tracks it is written
    std::vector<UsedItem> items;
};

int AdaptiveChannelsOf(ConstHandle group)
{
    return HasValue(group, "NumAdaptiveChannels")
               ? std::clamp(IntProperty(group, "NumAdaptiveChannels"), 1, kMaxChannels)
               : kMaxChannels;
}

int ChannelCountOf(const ChannelTypeRow& type, int adaptiveChannels)
{
    return type.type == kAdaptiveType ? adaptiveChannels : type.channels;
}

// One more than the highest channel that any item plays.
int HighestChannel(const std::vector<UsedItem>& items)
{
    std::uint32_t used = 1;
    for (const UsedItem& item : items)
        used |= item.channels;
    return static_cast<int>(std::bit_width(used));
}

int ExplodedCount(const ExportContext& context, const AudioTrack& track)
{
    const bool isAdaptive = track.type.type == kAdaptiveType;
    if (context.vl2snMode && (!isAdaptive || track.channels == 2))
        return 1;
    return isAdaptive ? std::min(HighestChannel(track.items), track.channels) : track.channels;
}

AudioTrack ReadTrack(const ExportContext& context, const AudioGroup& group,
                     ConstHandle projectTrack, int index)
{
    const ConstHandle audioTrack = AudioTrackOf(projectTrack);
    AudioTrack track{.track = projectTrack,
                     .audioTrack = audioTrack,
                     .index = index,
                     .type = ChannelTypeOf(audioTrack),
                     .items = {}};
    for (const ConstHandle item : TrackItemsOf(projectTrack))
        track.items.push_back({item, UsedChannels(item)});
    track.channels = ChannelCountOf(track.type, group.adaptiveChannels);
    track.exploded = ExplodedCount(context, track);
    return track;
}

bool IsMutedByFader(ConstHandle audioTrack)
{
    return StartSwitch(FaderParam(audioTrack, "Mute"), false);
}

void WriteHandOffForm(const AudioTrack& track, ObjectHandle element)
{
    const ConstHandle properties = TrackProperties(track.track);
    if (HasValue(properties, "MZ.TrackName"))
        element.SetProperty("name", EscapeXML(properties.GetProperty("MZ.TrackName")));
    else
        element.SetProperty("name",
                            GetMessage(Message::kAudio) + " " + IntToString(track.index + 1));
    element.SetProperty("channelcount", IntToString(track.channels));
}

void WriteExplodedForm(const AudioTrack& track, int channel, ObjectHandle element)
{
    if (!DirectPanProcessorOf(track.audioTrack))
        element.SetPropertyShared("hardpan", "TRUE");
    element.SetProperty("currentExplodedTrackIndex", IntToString(channel));
    element.SetProperty("totalExplodedTrackCount", IntToString(track.exploded));
    element.SetPropertyShared("velaTrackType", track.type.name);
}

// A track of one channel takes all items, also those that say nothing about channels.
void TranslateItemsOfChannel(ExportContext& context, const AudioTrack& source, int channel,
                             TrackPlace& track)
{
    for (const UsedItem& used : source.items)
        if (source.exploded == 1 || (used.channels >> channel & 1U) != 0)
            TranslateAudioItem(context, track, used.item,
                               {.channel = channel, .isExploded = source.exploded > 1});
}

// `number` is that of the written track. In the hand-off form tracks of several channels stay
// whole.
int OutputOf(const ExportContext& context, AudioGroup& group, const AudioTrack& source,
             const std::vector<int>& assigned, int channel, int number)
{
    const int output = assigned[static_cast<std::size_t>(channel)];
    if (output != kUnassigned)
        return group.outputs.Assigned(output, !context.vl2snMode || source.channels != 2);
    const bool ofSeveral = source.exploded > 1 || (context.vl2snMode && source.channels > 1);
    return group.outputs.Unassigned(ofSeveral ? channel : number - 1, ofSeveral);
}

void TranslateExploded(ExportContext& context, AudioGroup& group, const AudioTrack& source,
                       const std::vector<int>& assigned, int channel)
{
    TrackPlace track{.sequence = group.sequence,
                     .kind = MediaType::Audio,
                     .index = source.index,
                     .number = group.nextNumber++,
                     .track = context.document.NewObject("track")};
    FaderToXmeml(context.document, FaderParam(source.audioTrack, "Volume"), track.track);
    WriteTrackState(source.track, IsMutedByFader(source.audioTrack), track.track);
    if (context.vl2snMode)
        WriteHandOffForm(source, track.track);
    else
        WriteExplodedForm(source, channel, track.track);
    TranslateItemsOfChannel(context, source, channel, track);

    track.track.SetProperty(
        "outputchannelindex",
        IntToString(OutputOf(context, group, source, assigned, channel, track.number)));
    group.audio.AddChild(track.track);
}

void TranslateAudioTrack(ExportContext& context, AudioGroup& group, ConstHandle projectTrack,
                         int index)
{
    const AudioTrack track = ReadTrack(context, group, projectTrack, index);
    const std::vector<int> assigned =
        AssignedChannels(DirectPanProcessorOf(track.audioTrack), track.exploded);
    for (int channel = 0; channel < track.exploded; ++channel)
        TranslateExploded(context, group, track, assigned, channel);
}

ObjectHandle WriteFormat(ExportContext& context, const SequencePlace& sequence, ConstHandle group)
{
    const Ticks sampleTicks = RateOfGroup(group);
    if (sampleTicks == 0)
        throw NoFrameLength("the sound of sequence", sequence.sequence.GetProperty("Name"));
    const ObjectHandle characteristics = context.document.NewObject("samplecharacteristics");
    characteristics.SetPropertyShared("depth", context.vl2snMode ? "32" : "16");
    characteristics.SetProperty("samplerate", IntToString(DivTicks(kTicksPerSecond, sampleTicks)));
    const ObjectHandle format = context.document.NewObject("format");
    format.AddChild(characteristics);
    return format;
}

ObjectHandle WriteOutputs(ExportContext& context, int count)
{
    const ObjectHandle outputs = context.document.NewObject("outputs");
    for (int number = 1; number <= count; ++number) {
        const std::string text = IntToString(number);
        const ObjectHandle channel = context.document.NewObject("channel");
        channel.SetProperty("index", text);
        const ObjectHandle group = context.document.NewObject("group");
        group.SetProperty("index", text);
        group.SetPropertyShared("numchannels", "1");
        group.SetPropertyShared("downmix", "0");
        group.AddChild(channel);
        outputs.AddChild(group);
    }
    return outputs;
}

int OutputCountOf(const AudioGroup& group, ConstHandle masterTrack)
{
    return masterTrack ? ChannelCountOf(ChannelTypeOf(masterTrack), group.adaptiveChannels) : 2;
}

} // namespace

ConstHandle FaderParam(ConstHandle audioTrack, std::string_view name)
{
    for (const ConstHandle component : ComponentsOf(ChainOfOwner(audioTrack)))
        if (component.GetName() == "AudioFader")
            for (const ConstHandle param : ParamsOf(component))
                if (param.GetProperty("Name") == name)
                    return param;
    return {};
}

ObjectHandle TranslateAudioGroup(ExportContext& context, const SequencePlace& sequence,
                                 ConstHandle group)
{
    AudioGroup place{.sequence = sequence,
                     .adaptiveChannels = AdaptiveChannelsOf(group),
                     .outputs = OutputChannels(),
                     .audio = context.document.NewObject("audio")};
    const ConstHandle masterTrack = MasterAudioTrackOf(group);
    const int channels = OutputCountOf(place, masterTrack);
    // Outputs come in pairs, one at least; a hand-off states them as they are.
    const int outputs = context.vl2snMode ? channels : channels + channels % 2;
    place.outputs = OutputChannels(outputs);

    FaderToXmeml(context.document, FaderParam(masterTrack, "Volume"), place.audio);
    place.audio.SetProperty("numOutputChannels", IntToString(channels));
    place.audio.AddChild(WriteFormat(context, sequence, group));
    place.audio.AddChild(WriteOutputs(context, outputs));
    int index = 0;
    for (const ConstHandle track : TracksOf(group))
        TranslateAudioTrack(context, place, track, index++);
    return place.audio;
}

} // namespace XPJ::RVX

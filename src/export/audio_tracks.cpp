#include "export/audio_tracks.h"

#include "core/channel_types.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/audio_chain.h"
#include "effects/audio_fader.h"
#include "effects/parameters.h"
#include "export/audio_channels.h"
#include "platform/platform.h"

#include <algorithm>
#include <bit>
#include <utility>
#include <vector>

namespace XPJ::RVX {

namespace {

// What the tracks of one group share.
struct AudioGroup {
    SequenceContext sequence;
    int adaptiveChannels = kMaxTrackChannels;
    OutputChannels outputs;
    ObjectHandle element;               // `audio`
    std::vector<OpenTrack> tracks = {}; // the written ones
};

struct UsedItem {
    TrackItem item;
    std::uint32_t channels = 0; // a bit for each that it plays
};

struct AudioTrack {
    ConstHandle track;
    int index = 0; // from 0, in the project's group
    const ChannelTypeRow& type;
    int channels = 1; // of its type
    int exploded = 1; // into how many tracks it is written
    std::vector<UsedItem> items;
};

int AdaptiveChannelsOf(ConstHandle group)
{
    return HasValue(group, "NumAdaptiveChannels")
               ? std::clamp(IntProperty(group, "NumAdaptiveChannels"), 1, kMaxTrackChannels)
               : kMaxTrackChannels;
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

// In open interchange a stereo track whose items play its first channel alone, as that of a mono
// track that was imported, gets no empty partner.
int ExplodedCount(const ExportContext& context, const AudioTrack& track)
{
    const bool isAdaptive = track.type.type == kAdaptiveType;
    if (context.IsHandOff() && (!isAdaptive || track.channels == 2))
        return 1;
    return isAdaptive || context.options.settings.openInterchange
               ? std::min(HighestChannel(track.items), track.channels)
               : track.channels;
}

AudioTrack ReadTrack(const ExportContext& context, const AudioGroup& group,
                     ConstHandle projectTrack, int index)
{
    AudioTrack track{.track = projectTrack,
                     .index = index,
                     .type = ChannelTypeOf(IntProperty(projectTrack, "ChannelType")),
                     .items = {}};
    for (const ConstHandle item : TrackItemsOf(projectTrack))
        track.items.push_back({TrackItem(item), UsedChannels(TrackItem(item))});
    track.channels = ChannelCountOf(track.type, group.adaptiveChannels);
    track.exploded = ExplodedCount(context, track);
    return track;
}

bool IsMutedByFader(ConstHandle track)
{
    return StartSwitch(FaderParam(track, "Mute"), false);
}

void WriteHandOffState(const AudioTrack& track, ObjectHandle element)
{
    if (HasValue(track.track, "MZ.TrackName"))
        element.SetProperty("name", EscapeXML(track.track.GetProperty("MZ.TrackName")));
    else
        element.SetProperty("name",
                            GetMessage(Message::kAudio) + " " + IntToString(track.index + 1));
    element.SetProperty("channelcount", IntToString(track.channels));
}

void WriteExplodedState(const AudioTrack& track, int channel, ObjectHandle element)
{
    if (!AssignsChannels(PannerOf(track.track)))
        element.SetPropertyShared("hardpan", "TRUE");
    element.SetProperty("currentExplodedTrackIndex", IntToString(channel));
    element.SetProperty("totalExplodedTrackCount", IntToString(track.exploded));
    element.SetPropertyShared("velaTrackType", track.type.trackName);
}

// A track of one channel takes all items, also those that state nothing about channels.
std::vector<ItemPart> ItemsOfChannel(const AudioTrack& source, int channel)
{
    std::vector<ItemPart> items;
    for (const UsedItem& used : source.items)
        if (source.exploded == 1 || (used.channels >> channel & 1U) != 0)
            items.push_back(
                {.item = used.item, .channel = channel, .isExploded = source.exploded > 1});
    return items;
}

// A channel of a project's track, and the outputs to which all of them are assigned.
struct TrackChannel {
    const AudioTrack& source;
    const std::vector<int>& assigned;
    int channel = 0;
};

// `number` is that of the written track. In the hand-off document tracks of several channels are
// not split.
int OutputOf(const ExportContext& context, AudioGroup& group, const TrackChannel& part, int number)
{
    const AudioTrack& source = part.source;
    const int output = part.assigned[static_cast<std::size_t>(part.channel)];
    if (output != kUnassigned)
        return group.outputs.Assigned(output, !context.IsHandOff() || source.channels != 2);
    const bool ofSeveral = source.exploded > 1 || (context.IsHandOff() && source.channels > 1);
    return group.outputs.Unassigned(ofSeveral ? part.channel : number - 1, ofSeveral);
}

bool IsAnimated(ConstHandle param)
{
    return HasValue(param, "Keyframes");
}

bool IsPanned(ConstHandle panner)
{
    constexpr double kCenter = 0.5;
    for (const ConstHandle param : ParamsOf(panner))
        return IsAnimated(param) || StartNumber(param, kCenter) != kCenter;
    return false;
}

// What no fader of a document has: in open interchange that is the mute, to the letter all that
// moves or is a filter. `filter` is the kind of remark for the latter.
void ReportFader(const EffectContext& effects, bool isOpen, ConstHandle audioTrack,
                 RemarkKind filter)
{
    for (const std::string_view name : {"Volume", "Mute"})
        if (IsAnimated(FaderParam(audioTrack, name)) && !(isOpen && name == "Volume"))
            effects.AddRemark(RemarkKind::FaderAutomation, {.detail = name});
    if (!isOpen)
        ReportAudioEffects(effects, ChainOfOwner(audioTrack), {.loss = filter});
    if (IsPanned(PannerOf(audioTrack)))
        effects.AddRemark(RemarkKind::TrackPan);
}

// A track or a master track.
struct FaderOwner {
    ConstHandle track;
    ItemLocation location;
    Ticks frameTicks;
    RemarkKind filter;       // of the remarks about its filters
    bool isRepeated = false; // written once more
};

// Keyframes and filters, for which the letter has no term on tracks, leave in open interchange.
void WriteFader(ExportContext& context, const FaderOwner& fader, ObjectHandle owner)
{
    const bool isOpen = context.options.settings.openInterchange;
    EffectContext effects{.document = context.document,
                          .account = context.account,
                          .location = fader.location,
                          .frameTicks = fader.frameTicks,
                          .isRepeated = fader.isRepeated};
    const ConstHandle volume = FaderParam(fader.track, "Volume");
    if (isOpen)
        TrackEffectsToXmeml(effects, ChainOfOwner(fader.track), volume, owner);
    else
        FaderToXmeml(context.document, volume, owner);
    if (fader.filter == RemarkKind::MasterEffect)
        effects.location.trackKind = kNoTrack;
    ReportFader(effects, isOpen, fader.track, fader.filter);
}

// Channels of items that are on none of the written tracks, and silent ones on any of them.
void ReportChannels(ExportContext& context, const TrackContext& track, const AudioTrack& source)
{
    for (const UsedItem& used : source.items) {
        const auto add = [&](RemarkKind kind) {
            AddRemark(context.account, kind,
                      LocationOfItem(track, used.item, SubClipOf(used.item).GetProperty("Name")));
        };
        const int contents = std::min(ContentCount(ClipOfSubClip(SubClipOf(used.item))),
                                      static_cast<int>(kMaxTrackChannels));
        if (source.exploded > 1 && used.channels == 0)
            add(RemarkKind::ClipSilent);
        else if (std::popcount(used.channels) < contents)
            add(RemarkKind::ChannelSilent);
        if (used.channels >> (source.exploded - 1) > 1)
            add(RemarkKind::ChannelBeyondTrack);
    }
}

void ReportTrack(ExportContext& context, const TrackContext& track, const TrackChannel& part)
{
    ReportTrackName(context, track, part.source.track, "Audio");
    if (AssignsManyOutputs(PannerOf(part.source.track)))
        AddRemark(context.account, RemarkKind::TrackOutputs, LocationOfTrack(track));
    if (!context.IsHandOff())
        ReportChannels(context, track, part.source);
}

void OpenExplodedTrack(ExportContext& context, AudioGroup& group, const TrackChannel& part)
{
    const AudioTrack& source = part.source;
    OpenTrack result{.track = {.sequence = group.sequence,
                               .type = MediaType::Audio,
                               .unit = context.DocumentUnit(),
                               .index = source.index,
                               .number = static_cast<int>(group.tracks.size()) + 1,
                               .element = context.document.NewObject("track")},
                     .items = ItemsOfChannel(source, part.channel)};
    const ObjectHandle element = result.track.element;
    ItemLocation location = LocationOfTrack(result.track);
    location.time = FormatItemTime(group.sequence, 0);
    WriteFader(context,
               {.track = source.track,
                .location = location,
                .frameTicks = group.sequence.frameTicks,
                .filter = RemarkKind::TrackEffect,
                .isRepeated = part.channel > 0},
               element);
    WriteTrackState(context, source.track, IsMutedByFader(source.track), element);
    if (context.IsHandOff())
        WriteHandOffState(source, element);
    else
        WriteExplodedState(source, part.channel, element);
    element.SetProperty("outputchannelindex",
                        IntToString(OutputOf(context, group, part, result.track.number)));
    if (part.channel == 0)
        ReportTrack(context, result.track, part);
    group.element.AddChild(element);
    group.tracks.push_back(std::move(result));
}

void OpenAudioTrack(ExportContext& context, AudioGroup& group, ConstHandle projectTrack, int index)
{
    const AudioTrack track = ReadTrack(context, group, projectTrack, index);
    const std::vector<int> assigned = AssignedChannels(PannerOf(track.track), track.exploded);
    for (int channel = 0; channel < track.exploded; ++channel)
        OpenExplodedTrack(context, group, {track, assigned, channel});
}

ObjectHandle WriteFormat(ExportContext& context, const SequenceContext& sequence, ConstHandle group)
{
    const Ticks sampleTicks = Int64Property(group, "FrameRate");
    if (sampleTicks == 0)
        throw NoFrameLength("the sound of sequence", sequence.sequence.GetProperty("Name"));
    const ObjectHandle characteristics = context.document.NewObject("samplecharacteristics");
    characteristics.SetPropertyShared("depth", context.IsHandOff() ? "32" : "16");
    characteristics.SetProperty("samplerate", IntToString(DivTicks(kTicksPerSecond, sampleTicks)));
    const ObjectHandle format = context.document.NewObject("format");
    format.AddChild(characteristics);
    return format;
}

ObjectHandle WriteOutputs(Document& document, int count)
{
    const ObjectHandle outputs = document.NewObject("outputs");
    for (int number = 1; number <= count; ++number) {
        const std::string text = IntToString(number);
        const ObjectHandle channel = document.NewObject("channel");
        channel.SetProperty("index", text);
        const ObjectHandle group = document.NewObject("group");
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
    return masterTrack ? ChannelCountOf(ChannelTypeOf(IntProperty(masterTrack, "ChannelType")),
                                        group.adaptiveChannels)
                       : 2;
}

} // namespace

std::vector<OpenTrack> TranslateAudioGroup(ExportContext& context, const SequenceContext& sequence,
                                           ConstHandle group, ObjectHandle media)
{
    AudioGroup result{.sequence = sequence,
                      .adaptiveChannels = AdaptiveChannelsOf(group),
                      .outputs = OutputChannels(),
                      .element = context.document.NewObject("audio")};
    const ConstHandle masterTrack = MasterTrackOf(group);
    const int channels = OutputCountOf(result, masterTrack);
    // Outputs come in pairs, one at least; a hand-off document states them as they are.
    const int outputs = context.IsHandOff() ? channels : channels + channels % 2;
    result.outputs = OutputChannels(outputs);

    media.AddChild(result.element);
    WriteFader(context,
               {.track = masterTrack,
                .location = {.sequence = sequence.sequence.GetProperty("Name"), .trackKind = 2},
                .frameTicks = sequence.frameTicks,
                .filter = RemarkKind::MasterEffect},
               result.element);
    result.element.SetProperty("numOutputChannels", IntToString(channels));
    result.element.AddChild(WriteFormat(context, sequence, group));
    result.element.AddChild(WriteOutputs(context.document, outputs));
    int index = 0;
    for (const ConstHandle track : TracksOf(group))
        OpenAudioTrack(context, result, track, index++);
    return std::move(result.tracks);
}

} // namespace XPJ::RVX

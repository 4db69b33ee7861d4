#include "import/tracks.h"

#include "core/host_properties.h"
#include "core/numbers.h"
#include "core/text_hash.h"
#include "core/video_formats.h"
#include "effects/audio_fader.h"
#include "effects/effect_elements.h"
#include "import/track_items.h"
#include "import/transitions.h"
#include "platform/platform.h"
#include "project/objects.h"
#include "xmeml/file_audio.h"
#include "xmeml/flags.h"
#include "xmeml/tracks.h"

#include <algorithm>
#include <string>
#include <vector>

namespace XPJ {

namespace {

constexpr int kFirstVideoId = 1;
constexpr int kFirstAudioId = 2;

ObjectHandle MakeFader(Document& document, int channelType, int groupChannels, Ticks sampleTicks)
{
    const int channels = channelType == kAdaptiveType ? groupChannels : ChannelCountOf(channelType);
    return MakeFaderChain(
        document, {.channelType = channelType, .channels = channels, .sampleTicks = sampleTicks});
}

int NamedType(std::string_view name)
{
    for (const ChannelTypeRow& row : ChannelTypes())
        if (name == row.trackName)
            return row.type;
    return kStereoType;
}

// Type of a track in an audio hand-off: that of its first item, else by the number of channels.
int HandoffType(const FileCatalog& files, ConstHandle track)
{
    const FileElement file = FileOfItem(files, track.GetChild("clipitem"));
    const int kind = file ? AudioKindOfFile(file).kind : kUnknownChannels;
    if (kind != kUnknownChannels)
        return kind == kAdaptive ? kAdaptiveType : kind == kStereoPair ? kStereoType : kind;
    switch (IntProperty(track, "channelcount", 1)) {
    case 1:
        return kMonoType;
    case 6:
        return kSurroundType;
    default:
        return kStereoType;
    }
}

// ChannelType of an audio `track`.
int TrackChannelType(const ImportState& state, ConstHandle track)
{
    if (state.options.sn2vlMode)
        return HandoffType(state.files, track);
    const std::string_view type = ExplodedTypeOf(track);
    if (!type.empty())
        return NamedType(type);
    return HasFlag(track, "monotrack") ? kMonoType : kStereoType;
}

void CopyTrackProperties(ConstHandle track, ObjectHandle result)
{
    result.SetPropertyShared("IsLocked", BoolText(IsTrue(track, "locked")));
    result.SetPropertyShared("IsMuted", BoolText(!IsEnabled(track)));
    for (const Name& key : TrackUIPropertyList())
        if (track.HasProperty(key))
            result.AddPropertyShared(key, track.GetProperty(key));
}

// Tracks of a hand-off that share a name are numbered.
class TrackNames {
public:
    std::string Take(std::string_view name)
    {
        std::string result(name);
        int& number = lastNumbers_[name];
        while (!used_.insert(result).second)
            result = std::string(name) + "-" + IntToString(++number);
        return result;
    }

private:
    TextSet<std::string> used_;
    TextMap<int> lastNumbers_;
};

EffectContext ContextOfLevel(const SequenceContext& sequence, const ItemLocation& location)
{
    return {.document = sequence.state.document,
            .account = sequence.state.account,
            .location = location,
            .frameTicks = sequence.rates.edges,
            .sampleTicks = sequence.rates.audio,
            .openInterchange = sequence.state.options.settings.openInterchange};
}

// `owner` is a `track` or the `audio` of a sequence. Its filters count in open interchange.
void ApplyTrackEffects(const SequenceContext& sequence, const ItemLocation& location,
                       ConstHandle owner, ObjectHandle track)
{
    const EffectContext context = ContextOfLevel(sequence, location);
    const ObjectHandle chain = track.GetChild("Components");
    ApplyFaderLevel(context, owner, chain);
    if (sequence.state.options.settings.openInterchange)
        AddTrackFilters(context, owner, chain);
    else
        RemarkOnTrackFilters(context, owner);
}

// Moves the fader of a project's track as the level filter of a `track` states.
void ApplyTrackLevel(const TrackContext& context, ConstHandle track, ObjectHandle result)
{
    ItemLocation location = LocationOfIssue(context, track.GetProperty("name"), 0);
    // Few tracks have a name; all have a number.
    const std::string number =
        GetMessage(Message::kAudioTrack, {IntToString(std::int64_t{context.index} + 1)});
    if (location.clip.empty())
        location.clip = number;
    location.span = {};
    ApplyTrackEffects(context.sequence, location, track, result);
}

// The same for the master track, whose level is stated by the `audio` of a sequence.
void ApplyMasterLevel(const SequenceContext& context, ConstHandle audio, ObjectHandle masterTrack)
{
    const ItemLocation location = {.sequence = context.timecode.name,
                                   .clip = context.timecode.name, // the whole of it
                                   .time = context.timecode.TextOf(0)};
    ApplyTrackEffects(context, location, audio, masterTrack);
}

// On a link to an item that is not there.
void RemarkOnLink(const TrackContext& context, const ClipItem& item, ConstHandle link)
{
    std::string target(link.GetProperty("linkclipref"));
    if (target.empty())
        target.append("clip ")
            .append(link.GetProperty("clipindex"))
            .append(" of track ")
            .append(link.GetProperty("trackindex"));
    AddRemark(context.sequence.state.account, RemarkKind::LinkUnknown,
              LocationOfItem(context, item.GetProperty("name"), item.times.start.value,
                             item.times.end.value),
              {.detail = target});
}

// Filters of a video track have no counterpart.
void RemarkOnVideoTrack(const TrackContext& context, ConstHandle track)
{
    ForEachEffect(track, [&](ConstHandle effect) {
        ItemLocation location = LocationOfIssue(context, track.GetProperty("name"), 0);
        location.span = {};
        ContextOfLevel(context.sequence, location).AddRemark(RemarkKind::TrackFilter, effect);
    });
}

// Transitions find their neighbours once all items are there.
template <typename Translator>
void TranslateItems(const TrackContext& context, ConstHandle track,
                    const std::vector<ClipItem>& items, ObjectHandle result,
                    const Translator& translate)
{
    const SequenceContext& sequence = context.sequence;
    for (const ClipItem& item : items) {
        const ObjectHandle trackItem = translate(item);
        if (!trackItem)
            continue;
        result.AddChild("TrackItem", trackItem);
        const LinkKey key = KeyOfItem(item, {.sequenceNumber = sequence.number,
                                             .type = context.type,
                                             .track = context.number,
                                             .position = item.position});
        const std::vector<ConstHandle> unknown =
            sequence.state.links.Add(sequence.links, item, {key, trackItem});
        for (const ConstHandle& link : unknown)
            RemarkOnLink(context, item, link);
    }
    TranslateTransitions(context, track, result);
}

ObjectHandle TranslateVideoTrack(const TrackContext& context, ConstHandle track)
{
    const SequenceContext& sequence = context.sequence;
    const ObjectHandle result = MakeVideoTrack(sequence.state.document, context.index, context.id);
    CopyTrackProperties(track, result);
    RemarkOnVideoTrack(context, track);
    TranslateItems(context, track,
                   sequence.items.video[static_cast<std::size_t>(context.number) - 1], result,
                   [&](const ClipItem& item) { return TranslateVideoItem(context, item); });
    return result;
}

ObjectHandle TranslateAudioTrack(const TrackContext& context, ConstHandle track)
{
    const SequenceContext& sequence = context.sequence;
    const ImportState& state = sequence.state;
    const int type = TrackChannelType(state, track);
    const ObjectHandle result = MakeTrackWithFader(
        state.document, {.index = context.index,
                         .id = context.id,
                         .panner = {.trackType = type,
                                    .groupType = sequence.groupType,
                                    .groupChannels = sequence.groupChannels,
                                    .sampleTicks = sequence.rates.audio,
                                    .outputChannel = IntProperty(track, "outputchannelindex", -1),
                                    .handoff = state.options.sn2vlMode}});
    CopyTrackProperties(track, result);
    ApplyTrackLevel(context, track, result);
    TranslateItems(context, track,
                   sequence.items.audio[static_cast<std::size_t>(context.number) - 1], result,
                   [&](const ClipItem& item) { return TranslateAudioItem(context, item, type); });
    return result;
}

} // namespace

ObjectHandle MakeTrackWithFader(Document& document, AudioTrackFields fields)
{
    const PannerFields& panner = fields.panner;
    fields.fader = MakeFader(document, panner.trackType, panner.groupChannels, panner.sampleTicks);
    return MakeAudioTrack(document, fields);
}

void AddMasterWithFader(Document& document, const AudioGroup& group, int trackCount, int groupType,
                        Ticks sampleTicks)
{
    const ObjectHandle fader = MakeFader(document, groupType, group.channels, sampleTicks);
    AddMasterTrack(document, group, {trackCount, groupType, sampleTicks, fader});
}

ObjectHandle TranslateVideoTracks(SequenceContext& context, ConstHandle video)
{
    Document& document = context.state.document;
    const ObjectHandle group =
        MakeVideoGroup(document, context.rates.video, context.frame.rect, context.frame.par);
    if (const ConstHandle characteristics = CharacteristicsOf(context.sequence))
        group.SetProperty("FieldType",
                          FieldTypeOfDominance(characteristics.GetProperty("fielddominance")));

    TrackContext track{.sequence = context, .type = MediaType::Video, .id = kFirstVideoId};
    for (const ConstHandle& element : video.GetChildren("track")) {
        track.number = track.lastNumber = track.index + 1;
        group.AddChild("Track", TranslateVideoTrack(track, element));
        ++track.index;
        ++track.id;
    }
    if (track.index == 0)
        group.AddChild("Track", MakeVideoTrack(document, track.index, track.id++));
    group.SetProperty("NextTrackID", IntToString(track.id));
    return group;
}

ObjectHandle TranslateAudioTracks(SequenceContext& context, ConstHandle audio, int outputs)
{
    Document& document = context.state.document;
    const Ticks sampleTicks = context.rates.audio;
    context.groupChannels = context.groupType == kAdaptiveType
                                ? std::min(outputs, kMaxTrackChannels)
                                : ChannelCountOf(context.groupType);
    const AudioGroup group = MakeAudioGroup(document, sampleTicks, context.groupChannels);
    if (outputs > kMaxTrackChannels && context.groupType == kAdaptiveType)
        AddRemark(context.state.account, RemarkKind::OutputsLost,
                  {.sequence = context.timecode.name}, {.detail = IntToString(outputs)});
    TrackNames names;
    TrackContext track{.sequence = context, .type = MediaType::Audio, .id = kFirstAudioId};
    for (const AudioTrackRange& range : AudioTracksOf(audio)) {
        track.number = range.number;
        track.lastNumber = range.lastNumber;
        const ObjectHandle result = TranslateAudioTrack(track, range.track);
        if (context.state.options.sn2vlMode)
            result.SetProperty("MZ.TrackName", names.Take(range.track.GetProperty("name")));
        AddAudioTrack(group, result);
        ++track.index;
        ++track.id;
    }
    if (track.index == 0) {
        const PannerFields panner{.groupType = context.groupType, .sampleTicks = sampleTicks};
        AddAudioTrack(
            group, MakeTrackWithFader(document,
                                      {.index = track.index, .id = track.id++, .panner = panner}));
        ++track.index;
    }
    group.group.SetProperty("NextTrackID", IntToString(track.id));
    AddMasterWithFader(document, group, track.index, context.groupType, sampleTicks);
    ApplyMasterLevel(context, audio, group.group.GetChild("MasterTrack"));
    return group.group;
}

} // namespace XPJ

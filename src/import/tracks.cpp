#include "import/tracks.h"

#include "core/host_properties.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/audio_fader.h"
#include "xmeml/formats.h"
#include "import/item_audio.h"
#include "xmeml/files.h"
#include "import/streams.h"
#include "import/track_items.h"
#include "import/transitions.h"
#include "project/synthetic_items.h"
#include "platform/platform.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace XPJ {

namespace {

constexpr int kFirstVideoId = 1;
constexpr int kMasterTrackId = 1;
constexpr int kFirstAudioId = 2;

struct TrackTypeName {
    std::string_view name;
    int type;
};

constexpr TrackTypeName kTrackTypeNames[] = {
    {"Stereo", kStereoType},
    {"5.1", kSurroundType},
    {"SixteenChannel", kAdaptiveType},
    {"Mono", kMonoType},
};

int NamedType(std::string_view name)
{
    for (const TrackTypeName& row : kTrackTypeNames)
        if (name == row.name)
            return row.type;
    return kStereoType;
}

// Type of a track in an audio hand-off: that of its first item, else by the number of channels.
int HandoffType(const ImportState& state, ObjectHandle track)
{
    const ObjectHandle file = FileOfItem(state, track.GetChild("clipitem"));
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

void SetFlags(ObjectHandle track, ObjectHandle result)
{
    const bool isOff = EqualsIgnoreCase(track.GetProperty("enabled"), "FALSE");
    result.SetPropertyShared("IsLocked", IsTrue(track, "locked") ? "true" : "false");
    result.SetPropertyShared("IsMuted", isOff ? "true" : "false");
}

void CopyTrackProperties(ObjectHandle track, ObjectHandle result)
{
    for (const Name& key : TrackUIPropertyList())
        if (track.HasProperty(key))
            result.AddPropertyShared(key, track.GetProperty(key));
}

// Names of a hand-off's tracks are told apart by numbers.
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
    std::unordered_set<std::string> used_;
    std::unordered_map<std::string_view, int> lastNumbers_;
};

// Transitions count as positions, and find their neighbours once all items are there.
template <typename Translator>
void TranslateItems(const TrackContext& context, ObjectHandle track, ObjectHandle result,
                    const Translator& translate)
{
    ImportState& state = context.sequence.state;
    int position = 0;
    for (const ObjectHandle& item : track.GetChildren()) {
        if (!IsTrackItem(item))
            continue;
        ++position;
        if (item.GetName() == "transitionitem")
            continue;
        const ObjectHandle trackItem = translate(item);
        if (!trackItem)
            continue;
        result.AddChild("TrackItem", trackItem);
        AddLinkRecord(
            state, context.sequence.links, item,
            KeyOfItem(item, context.type, context.sequence.number, context.number, position),
            trackItem);
    }
    TranslateTransitions(context, track, result);
}

ObjectHandle TranslateVideoTrack(const TrackContext& context, ObjectHandle track)
{
    const ObjectHandle result =
        MakeVideoTrack(context.sequence.state.document, context.index, context.id);
    SetFlags(track, result);
    CopyTrackProperties(track, result);
    TranslateItems(context, track, result,
                   [&](ObjectHandle item) { return TranslateVideoItem(context, item); });
    return result;
}

ObjectHandle TranslateAudioTrack(const TrackContext& context, ObjectHandle track)
{
    const ImportState& state = context.sequence.state;
    const int type = TrackChannelType(state, track);
    const ObjectHandle result =
        MakeAudioTrack(state.document, context.index, context.id,
                       {.trackType = type,
                        .groupType = context.sequence.groupType,
                        .groupChannels = context.sequence.groupChannels,
                        .sampleTicks = context.sequence.rates.audio,
                        .outputChannel = IntProperty(track, "outputchannelindex", -1),
                        .handoff = state.sn2vlMode});
    SetFlags(track, result);
    CopyTrackProperties(track, result);
    ApplyTrackLevel(context, track, result);
    TranslateItems(context, track, result,
                   [&](ObjectHandle item) { return TranslateAudioItem(context, item, type); });
    return result;
}

ObjectHandle MakeFader(Document& document, int channelType, int groupChannels, Ticks sampleTicks)
{
    const int channels = channelType == kAdaptiveType ? groupChannels : ChannelCountOf(channelType);
    return MakeFaderChain(
        document, {.channelType = channelType, .channels = channels, .sampleTicks = sampleTicks});
}

// An audio track with the numbers of the continuations that follow it.
struct AudioTrackRange {
    ObjectHandle track;
    int number = 0;
    int lastNumber = 0;
};

std::vector<AudioTrackRange> AudioTracksOf(ObjectHandle audio)
{
    std::vector<AudioTrackRange> ranges;
    int number = 0;
    for (const ObjectHandle& track : audio.GetChildren("track")) {
        ++number;
        if (!IsContinuationTrack(track))
            ranges.push_back({track, number, number});
        else if (!ranges.empty())
            ranges.back().lastNumber = number;
    }
    return ranges;
}

} // namespace

bool IsContinuationTrack(ObjectHandle track)
{
    return HasValue(track, "velaTrackType") &&
           track.GetProperty("currentExplodedTrackIndex") != "0";
}

int TrackChannelType(const ImportState& state, ObjectHandle track)
{
    if (state.sn2vlMode)
        return HandoffType(state, track);
    const std::string_view name = track.GetProperty("velaTrackType");
    const bool isCancelled = name == "Mono" && IntProperty(track, "totalExplodedTrackCount") == 1;
    if (!name.empty() && !isCancelled)
        return NamedType(name);
    return HasFlag(track, "monotrack") ? kMonoType : kStereoType;
}

ObjectHandle MakeVideoTrack(Document& document, int index, int id)
{
    const ObjectHandle track = document.NewObject("VideoClipTrack");
    track.SetProperty("Index", IntToString(index));
    track.SetProperty("ID", IntToString(id));
    track.SetPropertyShared("IsLocked", "false");
    track.SetPropertyShared("IsMuted", "false");
    return track;
}

ObjectHandle MakeAudioTrack(Document& document, int index, int id, const PannerForm& panner)
{
    const ObjectHandle track = document.NewObject("AudioClipTrack");
    track.SetProperty("Index", IntToString(index));
    track.SetProperty("ID", IntToString(id));
    track.SetProperty("ChannelType", IntToString(panner.trackType));
    track.SetProperty("FrameRate", TickText(panner.sampleTicks));
    track.SetPropertyShared("IsMuted", "false");
    track.SetPropertyShared("IsLocked", "false");
    track.SetProperty("AudioTrackID", NewGuidText());
    track.SetPropertyShared("Assign", "1");
    track.SetPropertyShared("NextPannerID", kNextPannerId);
    track.AddChild("Components",
                   MakeFader(document, panner.trackType, panner.groupChannels, panner.sampleTicks));
    track.AddChild("Panner", MakeTrackPanner(document, panner));
    return track;
}

AudioGroup MakeAudioGroup(Document& document, Ticks sampleTicks, int channels, int inletType)
{
    AudioGroup result{document.NewObject("AudioTrackGroup"), document.NewObject("AudioTrackInlet"),
                      channels};
    result.group.SetProperty("ID", NewGuidText());
    result.group.SetPropertyShared("mediatype", MediaTypeText(MediaType::Audio));
    result.group.SetProperty("FrameRate", TickText(sampleTicks));
    result.group.SetProperty("NumAdaptiveChannels", IntToString(channels));
    result.inlet.SetProperty("FrameRate", TickText(sampleTicks));
    result.inlet.SetProperty("ChannelType", IntToString(inletType));
    return result;
}

void AddAudioTrack(const AudioGroup& group, ObjectHandle track)
{
    group.group.AddChild("Track", track);
    group.inlet.AddChild("Source", track);
}

void AddMasterTrack(Document& document, const AudioGroup& group, int trackCount, int groupType,
                    Ticks sampleTicks)
{
    const ObjectHandle master = document.NewObject("AudioMixTrack");
    master.SetProperty("Index", IntToString(trackCount));
    master.SetProperty("ID", IntToString(kMasterTrackId));
    master.SetProperty("AudioTrackID", NewGuidText());
    master.SetProperty("ChannelType", IntToString(groupType));
    master.SetProperty("FrameRate", TickText(sampleTicks));
    master.SetPropertyShared("NextPannerID", kNextPannerId);
    master.AddChild("Components", MakeFader(document, groupType, group.channels, sampleTicks));
    master.AddChild("Panner", MakeDefaultPanner(document, groupType, groupType, sampleTicks));
    master.AddChild("Inlet", group.inlet);
    group.group.AddChild("MasterTrack", master);
}

ObjectHandle TranslateVideoTracks(SequenceContext& context, ObjectHandle video)
{
    Document& document = context.state.document;
    const ObjectHandle group =
        MakeVideoGroup(document, context.rates.video, context.frameRect, context.aspect);
    if (const ObjectHandle characteristics = CharacteristicsOf(context.sequence))
        group.SetProperty("FieldType", FieldTypeOf(characteristics.GetProperty("fielddominance")));

    TrackContext track{.sequence = context, .type = MediaType::Video, .id = kFirstVideoId};
    for (const ObjectHandle& element : video.GetChildren("track")) {
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

ObjectHandle TranslateAudioTracks(SequenceContext& context, ObjectHandle audio, int outputs)
{
    Document& document = context.state.document;
    const Ticks sampleTicks = context.rates.audio;
    context.groupChannels = context.groupType == kAdaptiveType
                                ? std::min(outputs, kMaxAdaptiveChannels)
                                : ChannelCountOf(context.groupType);
    const AudioGroup group = MakeAudioGroup(document, sampleTicks, context.groupChannels);
    TrackNames names;
    TrackContext track{.sequence = context, .type = MediaType::Audio, .id = kFirstAudioId};
    for (const AudioTrackRange& range : AudioTracksOf(audio)) {
        track.number = range.number;
        track.lastNumber = range.lastNumber;
        const ObjectHandle result = TranslateAudioTrack(track, range.track);
        if (context.state.sn2vlMode)
            result.SetProperty("MZ.TrackName", names.Take(range.track.GetProperty("name")));
        AddAudioTrack(group, result);
        ++track.index;
        ++track.id;
    }
    if (track.index == 0) {
        const PannerForm panner{.groupType = context.groupType, .sampleTicks = sampleTicks};
        AddAudioTrack(group, MakeAudioTrack(document, track.index, track.id++, panner));
        ++track.index;
    }
    group.group.SetProperty("NextTrackID", IntToString(track.id));
    AddMasterTrack(document, group, track.index, context.groupType, sampleTicks);
    ApplyMasterLevel(context, audio, group.group.GetChild("MasterTrack"));
    return group.group;
}

} // namespace XPJ

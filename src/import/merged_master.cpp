// A clip "m1" with the video file "v" and the audio files "a" and "b" becomes
//
//   master of "v" (V1)   V1  | v             |     Sequence of the merged clip: items of the parts'
//   master of "a" (A1)   A1  | a          |        own clips, at the start that "m1" states
//   master of "b" (A1)   A2      | b         |
//
//   merged master (V1A2): a VideoClip of the Sequence, and an AudioClip for each channel
#include "import/merged_master.h"

#include "core/numbers.h"
#include "core/text_hash.h"
#include "import/slugs.h"
#include "import/tracks.h"
#include "project/channel_groups.h"
#include "project/clips.h"
#include "project/media.h"
#include "project/objects.h"
#include "project/synthetic_items.h"

#include <algorithm>
#include <initializer_list>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kMonoLayout = R"({"SerializerWrappedObject": [{"channellabel": 0}]})";
// Frame of a merged clip without video.
constexpr std::string_view kBlackRect = "0,0,1920,1080";
constexpr std::string_view kBlackAspect = "1,1";

// A part in the list of video or of audio, and its clip, which shows the merged Sequence.
struct Part {
    const MergeComponent* component = nullptr;
    ObjectHandle own; // the component's first clip of the type
    ObjectHandle clip;
    int channels = 0;
};

struct Parts {
    std::vector<Part> video;
    std::vector<Part> audio;
    Ticks duration = 0; // of the longest
};

Ticks DurationOf(ObjectHandle clip)
{
    return Int64Property(clip.GetChild("Source"), "OriginalDuration");
}

// A camera format that holds video and audio together counts as video alone.
bool CountsAsAudio(const MergeComponent& component)
{
    return component.kind.audio > 0 && !(component.kind.video > 0 && component.hasCodec);
}

// To the letter a part brings a channel for each of its streams, so a stereo stream brings one.
int AudioChannelsOf(const ImportState& state, const MergeComponent& component)
{
    return state.options.settings.openInterchange
               ? static_cast<int>(ChannelsOf(component.master).size())
               : component.kind.audio;
}

void AddPart(const ImportState& state, const MergeComponent& component, MediaType type,
             ObjectHandle sequence, Parts& parts)
{
    Document& document = state.document;
    const ObjectHandle own = component.master.FirstClip(type);
    if (!own)
        return;
    parts.duration = std::max(parts.duration, DurationOf(own));
    const ObjectHandle source = MakeSequenceSource(
        document, sequence,
        {.type = type, .rate = Int64Property(own, "FrameRate"), .duration = parts.duration});
    if (type == MediaType::Video)
        parts.video.push_back(
            {&component, own, MakeVideoClip(document, source), std::max(component.kind.audio, 1)});
    else
        parts.audio.push_back(
            {&component, own, MakeAudioClip(document, source), AudioChannelsOf(state, component)});
}

Parts CollectParts(const ImportState& state, const MergeComponents& components,
                   ObjectHandle sequence)
{
    Parts parts;
    for (const MergeComponent& component : components) {
        if (component.kind.video > 0)
            AddPart(state, component, MediaType::Video, sequence, parts);
        if (CountsAsAudio(component))
            AddPart(state, component, MediaType::Audio, sequence, parts);
    }
    for (const std::vector<Part>* list : {&parts.video, &parts.audio})
        for (const Part& part : *list)
            part.clip.GetChild("Source").SetProperty("OriginalDuration", TickText(parts.duration));
    return parts;
}

// Makes a master a part of the merged clip.
void SetParent(Document& document, MasterClipHandle component, MasterClipHandle merged)
{
    const ObjectHandle audio = component.FirstClip(MediaType::Audio);
    const std::string_view stream =
        FindPath(audio, {"Source", "Media"}).GetProperty("StreamNumber");
    component.AddPropertyShared("MZ.MergeClip.ParentGUID", merged.GetProperty("uid"));
    component.AddPropertyShared("MZ.MergeClipUtils.AudioTrackNumberFromOriginalMergedClip",
                                stream.empty() ? "0" : stream);
    component.AddPropertyShared("MZ.MergeClipUtils.ComponentMasterClipOriginalName",
                                component.GetProperty("Name"));
    if (!component.HasChild("VideoComponentChain")) {
        const ObjectHandle chain = document.NewObject("VideoComponentChain");
        chain.SetPropertyShared("NextComponentID", "-1");
        component.AddChild("VideoComponentChain", chain);
    }
    if (!component.HasChild("AudioComponentChain"))
        component.AddChild(
            "AudioComponentChain",
            MakeEmptyAudioChain(document, kMonoType,
                                component.GetChild("Clip").GetProperty("FrameRate")));
}

// Where the files of a merged clip begin in it, in ticks: to the letter at the `start` of their
// item, in open interchange where their first frame would be, so that an `in` keeps them in sync.
// Parts of one clip come in a row.
class StartTimes {
public:
    explicit StartTimes(const ImportState& state)
        : files_(state.files), isOpen_(state.options.settings.openInterchange)
    {
    }

    Ticks Of(const MergeComponent& component)
    {
        if (component.clip != clip_)
            Read(component.clip);
        const auto start = starts_.find(component.fileId);
        return start == starts_.end() ? 0 : start->second;
    }

private:
    void Read(ConstHandle clip)
    {
        clip_ = clip;
        starts_.clear();
        Ticks first = 0;
        const ConstHandle media = clip.GetChild("media");
        for (const ConstHandle& group : {media.GetChild("video"), media.GetChild("audio")})
            for (const ConstHandle& track : group.GetChildren("track")) {
                const ConstHandle item = track.GetChild("clipitem");
                const FileElement file = FileOfItem(files_, item);
                const Frames start = std::max<Frames>(Int64Property(item, "start"), 0);
                const Frames in = isOpen_ ? std::max<Frames>(Int64Property(item, "in"), 0) : 0;
                const Ticks time =
                    MultiplyTicks(SubtractTicks(start, in), FirstRateOf({clip, item, file}));
                starts_.emplace(files_.IdOf(file), time);
                first = std::min(first, time);
            }
        for (auto& [id, start] : starts_)
            start = SubtractTicks(start, first);
    }

    // Ticks a frame; 0 where none states a rate.
    static Ticks FirstRateOf(std::initializer_list<ConstHandle> nodes)
    {
        for (const ConstHandle& node : nodes)
            if (const Ticks ticks = TicksOfRate(node.GetChild("rate")); ticks != 0)
                return ticks;
        return 0;
    }

    const FileCatalog& files_;
    bool isOpen_;
    ConstHandle clip_;
    TextMap<Ticks> starts_;
};

SyntheticItem ItemOf(const Part& part, ObjectHandle clip, Ticks start, int trackIndex)
{
    return {.name = part.component->master.GetProperty("Name"),
            .clip = clip,
            .master = part.component->master,
            .trackIndex = trackIndex,
            .start = start,
            .end = AddTicks(start, DurationOf(part.own))};
}

struct Frame {
    std::string_view rect = kBlackRect;
    std::string_view aspect = kBlackAspect;
};

Frame FrameOfParts(const std::vector<Part>& parts)
{
    if (parts.empty())
        return {};
    const ObjectHandle stream = FindPath(parts.front().own, {"Source", "Media", "VideoStream"});
    return {stream.GetProperty("FrameRect"), IsTrue(stream, "IsPAROverridden")
                                                 ? stream.GetProperty("OverriddenPAR")
                                                 : stream.GetProperty("OriginalPAR")};
}

// The group of the video, and how many tracks it has.
class VideoGroup {
public:
    VideoGroup(Document& document, Ticks frameTicks, const Frame& frame)
        : document_(document), frame_(frame),
          group_(MakeVideoGroup(document, frameTicks, frame.rect, frame.aspect))
    {
    }

    void AddPart(const SyntheticItem& item)
    {
        group_.SetPropertyShared("FieldType", "2");
        AddTrack(item);
    }
    void AddTrack(const SyntheticItem& item)
    {
        const ObjectHandle track = MakeVideoTrack(document_, trackCount_, trackCount_ + 1);
        track.AddChild("TrackItem",
                       MakeSyntheticVideoItem(document_, item, frame_.rect, frame_.aspect));
        group_.AddChild("Track", track);
        ++trackCount_;
    }
    ObjectHandle End() const
    {
        group_.SetProperty("NextTrackID", IntToString(trackCount_ + 1));
        return group_;
    }

private:
    Document& document_;
    Frame frame_;
    ObjectHandle group_;
    int trackCount_ = 0;
};

SyntheticItem BlackItem(ImportState& state, Ticks duration)
{
    const MasterClipHandle black = BlackMaster(state);
    return {.name = black.GetProperty("Name"),
            .clip = MakePlainVideoClip(state.document, black.VideoClip().GetChild("Source")),
            .master = black,
            .end = duration};
}

ObjectHandle MakeVideo(ImportState& state, const Parts& parts, StartTimes& starts)
{
    const Ticks frameTicks =
        parts.video.empty() ? kNtscFrameTicks : Int64Property(parts.video.front().own, "FrameRate");
    VideoGroup group(state.document, frameTicks, FrameOfParts(parts.video));
    for (const Part& part : parts.video)
        for (int channel = 0; channel < part.channels; ++channel) {
            const ObjectHandle clip =
                MakePlainVideoClip(state.document, part.own.GetChild("Source"));
            group.AddPart(ItemOf(part, clip, starts.Of(*part.component), 0));
        }
    if (parts.video.empty())
        group.AddTrack(BlackItem(state, parts.duration));
    return group.End();
}

// A mono clip of one channel.
ObjectHandle MakeChannelClip(Document& document, ObjectHandle source, const ClipFields& fields,
                             std::uint64_t channelIndex)
{
    const ObjectHandle clip = MakeAudioClip(document, source, fields);
    clip.SetPropertyShared("Gain", "1.0");
    clip.SetPropertyShared("Assign", "1");
    clip.SetPropertyShared("SecondaryIndex", "0");
    AddChannel(document, clip, channelIndex, source);
    clip.AddChild("Markers", document.NewObject("Markers"));
    clip.SetPropertyShared("AudioChannelLayout", kMonoLayout);
    return clip;
}

// The audio of a merged clip: its group, and how many channels there are, each on a track.
struct MergedAudio {
    ObjectHandle group;
    int channels = 0;
};

// Of the `number`th channel of a part, in its stream. The letter counts through all streams.
std::uint64_t ChannelIndexOf(const ImportState& state, const MasterChannel& channel, int number)
{
    return static_cast<std::uint64_t>(state.options.settings.openInterchange
                                          ? Int64Property(channel.channel, "ChannelIndex")
                                          : number);
}

MergedAudio MakeAudio(const ImportState& state, const Parts& parts, StartTimes& starts)
{
    Document& document = state.document;
    const AudioGroup group = MakeAudioGroup(document, kSampleTicks48k, 1);
    const PannerFields panner{.trackType = kMonoType, .handoff = state.options.sn2vlMode};
    int count = 0;
    for (const Part& part : parts.audio) {
        const std::vector<MasterChannel> channels = ChannelsOf(part.component->master);
        for (int i = 0; i < part.channels && i < std::ssize(channels); ++i, ++count) {
            const MasterChannel& channel = channels[static_cast<std::size_t>(i)];
            const ObjectHandle clip =
                MakeChannelClip(document, channel.clip.GetChild("Source"), {.inUse = true},
                                ChannelIndexOf(state, channel, i));
            const SyntheticItem item = ItemOf(part, clip, starts.Of(*part.component), count);
            const ObjectHandle track =
                MakeTrackWithFader(document, {.index = count, .id = count + 2, .panner = panner});
            track.AddChild("TrackItem", MakeSyntheticAudioItem(document, item, kSampleTicks48k));
            AddAudioTrack(group, track);
        }
    }
    group.group.SetProperty("NextTrackID", IntToString(count + 2));
    AddMasterWithFader(document, group, count, kStereoType, kSampleTicks48k);
    return {group.group, count};
}

MergeKind KindOf(const Parts& parts, const MergeComponent& first)
{
    MergeKind kind{.video = static_cast<int>(parts.video.size()),
                   .audio = static_cast<int>(parts.audio.size()),
                   .isSubclip = first.kind.isSubclip};
    if (kind.audio == 0)
        kind.video = 1;
    return kind;
}

ObjectHandle MakeMergedSequence(ImportState& state, std::string_view name)
{
    Document& document = state.document;
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", name);
    state.sequences.Begin(sequence);
    sequence.SetPropertyShared("BE.Sequence.IsMergedClip", "true");
    sequence.AddChild("Markers", document.NewObject("Markers"));
    sequence.AddChild("DVDMarkers", document.NewObject("DVDMarkers"));
    return sequence;
}

// The merged clip shows its Sequence: one clip for the video, one for each channel.
void AddClips(Document& document, const Parts& parts, ObjectHandle sequence, int channels,
              MasterClipHandle merged)
{
    if (!parts.video.empty()) {
        const ObjectHandle clip = parts.video.front().clip;
        clip.AddChild("Markers", document.NewObject("Markers"));
        merged.AddChild("Clip", clip);
    }
    if (channels == 0)
        return;
    const ObjectHandle source = MakeSequenceSource(
        document, sequence,
        {.type = MediaType::Audio, .rate = kSampleTicks48k, .duration = parts.duration});
    for (int i = 0; i < channels; ++i)
        merged.AddChild("Clip",
                        MakeChannelClip(document, source, {}, static_cast<std::uint64_t>(i)));
}

MasterClipHandle MakeMaster(Document& document, const MergeComponents& components,
                            const Parts& parts, const MergeComponent& namesake)
{
    const MasterClipHandle merged(document.NewObject("MasterClip"));
    AddUid(merged);
    merged.SetPropertyShared("Name", namesake.master.GetProperty("Name"));
    merged.SetProperty("FCPMergedMasterClipID", namesake.mergeId);
    merged.SetProperty("FCPMergedMasterKind", KindOf(parts, components.front()).Text());
    for (const MergeComponent& component : components)
        SetParent(document, component.master, merged);
    merged.AddChild("LoggingInfo", components.front().master.GetChild("LoggingInfo"));
    return merged;
}

} // namespace

MasterClipHandle BuildMergedMaster(ImportState& state, const MergeComponents& components)
{
    Document& document = state.document;
    const auto named = std::ranges::find_if(components, [](const MergeComponent& component) {
        return HasValue(component.master, "Name");
    });
    const MergeComponent& namesake = named == components.end() ? components.front() : *named;

    const ObjectHandle sequence = MakeMergedSequence(state, namesake.master.GetProperty("Name"));
    const Parts parts = CollectParts(state, components, sequence);
    if (parts.video.empty() && parts.audio.empty())
        return {};
    const MasterClipHandle merged = MakeMaster(document, components, parts, namesake);

    StartTimes starts(state);
    sequence.AddChild("TrackGroup", MakeVideo(state, parts, starts));
    const MergedAudio audio = MakeAudio(state, parts, starts);
    sequence.AddChild("TrackGroup", audio.group);
    AddClips(document, parts, sequence, audio.channels, merged);
    merged.AddChild("AudioComponentChain",
                    MakeEmptyAudioChain(document, kMonoType, TickText(kSampleTicks48k)));
    merged.AddChild("AudioClipChannelGroups",
                    MakeChannelGroups(document, {.kind = kMono, .channels = audio.channels}));

    const std::string_view format = merged.GetChild("LoggingInfo").GetProperty("TimecodeFormat");
    if (!format.empty())
        sequence.SetPropertyShared("MZ.Sequence.VideoTimeDisplayFormat", format);
    return merged;
}

} // namespace XPJ

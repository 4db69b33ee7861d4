#include "import/merged_master.h"

#include "core/numbers.h"
#include "project/channel_groups.h"
#include "import/generators.h"
#include "import/master_builder.h"
#include "xmeml/files.h"
#include "import/tracks.h"
#include "project/synthetic_items.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kMonoLayout = R"({"SerializerWrappedObject": [{"channellabel": 0}]})";
// Frame of a merged clip without picture.
constexpr std::string_view kBlackRect = "0,0,1920,1080";
constexpr std::string_view kBlackAspect = "1,1";

// "V1A2,SUBCLIP": sources of picture and of sound.
struct MergeKind {
    bool hasVideo = false;
    bool hasAudio = false;
    int channels = 0; // of sound
};

MergeKind ReadKind(ObjectHandle component)
{
    const std::string_view text = component.GetProperty("FCPMergedMasterKind");
    MergeKind kind;
    kind.hasVideo = text.starts_with('V');
    const std::size_t audio = kind.hasVideo ? 2 : 0;
    kind.hasAudio = text.size() > audio && text[audio] == 'A';
    if (kind.hasAudio)
        kind.channels = ParseInt(text.substr(audio + 1));
    return kind;
}

// A part in the list of picture or of sound, and its clip, which shows the merged Sequence.
struct Part {
    ObjectHandle component;
    ObjectHandle own; // the component's first clip of the type
    ObjectHandle clip;
    int channels = 0;
};

struct Parts {
    std::vector<Part> video;
    std::vector<Part> audio;
    Ticks duration = 0; // of the longest
};

ObjectHandle FirstClipOf(ObjectHandle master, MediaType type)
{
    for (const ObjectHandle& clip : master.GetChildren("Clip"))
        if (clip.GetProperty("mediatype") == MediaTypeText(type))
            return clip;
    return {};
}

Ticks DurationOf(ObjectHandle clip)
{
    return Int64Property(clip.GetChild("Source"), "OriginalDuration");
}

// A camera format that holds picture and sound together counts as picture alone.
bool CountsAsSound(ObjectHandle component, const MergeKind& kind)
{
    return kind.hasAudio && !(kind.hasVideo && HasValue(FirstSourceOf(component), "VelaCodec"));
}

void AddPart(Document& document, ObjectHandle component, MediaType type, ObjectHandle sequence,
             int channels, Parts& parts)
{
    const ObjectHandle own = FirstClipOf(component, type);
    if (!own)
        return;
    parts.duration = std::max(parts.duration, DurationOf(own));
    const ObjectHandle source = MakeSequenceSource(document, type, sequence,
                                                   Int64Property(own, "FrameRate"), parts.duration);
    if (type == MediaType::Video)
        parts.video.push_back(
            {component, own, MakeVideoClip(document, source), std::max(channels, 1)});
    else
        parts.audio.push_back({component, own, MakeAudioClip(document, source), channels});
}

Parts CollectParts(Document& document, const std::vector<ObjectHandle>& components,
                   ObjectHandle sequence)
{
    Parts parts;
    for (const ObjectHandle& component : components) {
        const MergeKind kind = ReadKind(component);
        if (kind.hasVideo)
            AddPart(document, component, MediaType::Video, sequence, kind.channels, parts);
        if (CountsAsSound(component, kind))
            AddPart(document, component, MediaType::Audio, sequence, kind.channels, parts);
    }
    for (const std::vector<Part>* list : {&parts.video, &parts.audio})
        for (const Part& part : *list)
            part.clip.GetChild("Source").SetProperty("OriginalDuration", TickText(parts.duration));
    return parts;
}

void MarkComponent(Document& document, ObjectHandle component, ObjectHandle merged)
{
    const ObjectHandle sound = FirstClipOf(component, MediaType::Audio);
    const std::string_view stream =
        FindPath(sound, {"Source", "Media"}).GetProperty("StreamNumber");
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

// Where the files of a merged clip begin in it, in ticks. Parts of one clip come in a row.
class StartTimes {
public:
    explicit StartTimes(const ImportState& state) : state_(state) {}

    Ticks Of(ObjectHandle component)
    {
        const auto clip = state_.componentClips.find(component.UniqueId());
        if (clip == state_.componentClips.end())
            return 0;
        if (clip->second != clip_)
            Read(clip->second);
        const auto start = starts_.find(component.GetProperty("FCPMergedMasterFileID"));
        return start == starts_.end() ? 0 : start->second;
    }

private:
    void Read(ObjectHandle clip)
    {
        clip_ = clip;
        starts_.clear();
        const Ticks unit = TicksOfRate(clip.GetChild("rate"));
        const ObjectHandle media = clip.GetChild("media");
        for (const ObjectHandle& medium : {media.GetChild("video"), media.GetChild("audio")})
            for (const ObjectHandle& track : medium.GetChildren("track")) {
                const ObjectHandle item = track.GetChild("clipitem");
                const Ticks start = std::max<Ticks>(Int64Property(item, "start"), 0);
                starts_.emplace(FileOfItem(state_, item).GetProperty("id"),
                                MultiplyTicks(start, unit));
            }
    }

    const ImportState& state_;
    ObjectHandle clip_;
    std::unordered_map<std::string_view, Ticks> starts_;
};

WholeItem ItemOf(const Part& part, ObjectHandle clip, Ticks start, int trackIndex)
{
    return {.name = part.component.GetProperty("Name"),
            .clip = clip,
            .master = part.component,
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

void AddVideoItem(Document& document, ObjectHandle group, int& trackCount, const WholeItem& item,
                  const Frame& frame)
{
    const ObjectHandle track = MakeVideoTrack(document, trackCount, trackCount + 1);
    track.AddChild("TrackItem", MakeWholeVideoItem(document, item, frame.rect, frame.aspect));
    group.AddChild("Track", track);
    ++trackCount;
}

ObjectHandle MakePictureClip(Document& document, ObjectHandle source)
{
    const ObjectHandle clip = MakeVideoClip(document, source, {.inUse = true});
    clip.AddChild("Markers", document.NewObject("Markers"));
    return clip;
}

WholeItem BlackItem(ImportState& state, Ticks duration)
{
    if (!state.blackVideo)
        state.blackVideo = MakeBlackMaster(state);
    const ObjectHandle source = VideoClipOf(state.blackVideo).GetChild("Source");
    return {.name = state.blackVideo.GetProperty("Name"),
            .clip = MakePictureClip(state.document, source),
            .master = state.blackVideo,
            .end = duration};
}

ObjectHandle MakePicture(ImportState& state, const Parts& parts, StartTimes& starts)
{
    Document& document = state.document;
    const Ticks frameTicks =
        parts.video.empty() ? kNtscFrameTicks : Int64Property(parts.video.front().own, "FrameRate");
    const Frame frame = FrameOfParts(parts.video);
    const ObjectHandle group = MakeVideoGroup(document, frameTicks, frame.rect, frame.aspect);
    group.SetPropertyShared("FieldType", "2");
    int trackCount = 0;
    for (const Part& part : parts.video)
        for (int channel = 0; channel < part.channels; ++channel) {
            const ObjectHandle clip = MakePictureClip(document, part.own.GetChild("Source"));
            const WholeItem item = ItemOf(part, clip, starts.Of(part.component), 0);
            AddVideoItem(document, group, trackCount, item, frame);
        }
    if (parts.video.empty())
        AddVideoItem(document, group, trackCount, BlackItem(state, parts.duration), frame);
    group.SetProperty("NextTrackID", IntToString(trackCount + 1));
    return group;
}

// A mono clip of one channel.
ObjectHandle MakeChannelClip(Document& document, ObjectHandle source, const ClipForm& form,
                             std::uint64_t channelIndex, ObjectHandle content)
{
    const ObjectHandle clip = MakeAudioClip(document, source, form);
    clip.SetPropertyShared("Gain", "1.0");
    clip.SetPropertyShared("Assign", "1");
    clip.SetPropertyShared("SecondaryIndex", "0");
    AddChannel(document, clip, channelIndex, content);
    clip.AddChild("Markers", document.NewObject("Markers"));
    clip.SetPropertyShared("AudioChannelLayout", kMonoLayout);
    return clip;
}

struct Sound {
    ObjectHandle group;
    int channels = 0;
};

Sound MakeSound(const ImportState& state, const Parts& parts, StartTimes& starts)
{
    Document& document = state.document;
    const AudioGroup group = MakeAudioGroup(document, kSampleTicks48k, 1);
    const PannerForm panner{.trackType = kMonoType, .handoff = state.sn2vlMode};
    int count = 0;
    for (const Part& part : parts.audio) {
        const std::vector<MasterChannel> channels = ChannelsOf(part.component);
        for (int i = 0; i < part.channels && i < std::ssize(channels); ++i, ++count) {
            const MasterChannel& channel = channels[static_cast<std::size_t>(i)];
            const ObjectHandle source = channel.clip.GetChild("Source");
            const ObjectHandle clip = MakeChannelClip(document, source, {.inUse = true},
                                                      static_cast<std::uint64_t>(i), source);
            const WholeItem item = ItemOf(part, clip, starts.Of(part.component), count);
            const ObjectHandle track = MakeAudioTrack(document, count, count + 2, panner);
            track.AddChild("TrackItem", MakeWholeAudioItem(document, item, kSampleTicks48k));
            AddAudioTrack(group, track);
        }
    }
    group.group.SetProperty("NextTrackID", IntToString(count + 2));
    AddMasterTrack(document, group, count, kStereoType, kSampleTicks48k);
    return {group.group, count};
}

std::string KindText(const Parts& parts, ObjectHandle first)
{
    std::string kind;
    if (parts.audio.empty())
        kind = "V1";
    else if (!parts.video.empty())
        kind = "V" + UintToString(parts.video.size());
    if (!parts.audio.empty())
        kind += "A" + UintToString(parts.audio.size());
    const std::string_view ofFirst = first.GetProperty("FCPMergedMasterKind");
    return ofFirst.find("SUBCLIP") == std::string_view::npos ? kind : kind + ",SUBCLIP";
}

ObjectHandle MakeMergedSequence(ImportState& state, std::string_view name)
{
    Document& document = state.document;
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", name);
    AddUid(sequence);
    sequence.SetProperty("ID", IntToString(NewSequenceNumber(state)));
    sequence.SetPropertyShared("BE.Sequence.IsMergedClip", "true");
    sequence.AddChild("Markers", document.NewObject("Markers"));
    sequence.AddChild("DVDMarkers", document.NewObject("DVDMarkers"));
    return sequence;
}

// The merged clip shows its Sequence: one clip for the picture, one for each channel.
void AddClips(Document& document, const Parts& parts, ObjectHandle sequence, int channels,
              ObjectHandle merged)
{
    if (!parts.video.empty()) {
        const ObjectHandle clip = parts.video.front().clip;
        clip.AddChild("Markers", document.NewObject("Markers"));
        merged.AddChild("Clip", clip);
    }
    if (channels == 0)
        return;
    const ObjectHandle source =
        MakeSequenceSource(document, MediaType::Audio, sequence, kSampleTicks48k, parts.duration);
    for (int i = 0; i < channels; ++i)
        merged.AddChild(
            "Clip", MakeChannelClip(document, source, {}, static_cast<std::uint64_t>(i), source));
}

} // namespace

ObjectHandle BuildMergedMaster(ImportState& state, const std::vector<ObjectHandle>& components)
{
    Document& document = state.document;
    const auto named = std::ranges::find_if(
        components, [](ObjectHandle component) { return HasValue(component, "Name"); });
    const ObjectHandle first = components.front();
    const ObjectHandle namesake = named == components.end() ? first : *named;

    const ObjectHandle sequence = MakeMergedSequence(state, namesake.GetProperty("Name"));
    const Parts parts = CollectParts(document, components, sequence);
    if (parts.video.empty() && parts.audio.empty())
        return {};
    const ObjectHandle merged = document.NewObject("MasterClip");
    AddUid(merged);
    merged.SetPropertyShared("Name", namesake.GetProperty("Name"));
    CopyProperty(namesake, "FCPMergedMasterClipID", merged, "FCPMergedMasterClipID");
    merged.SetProperty("FCPMergedMasterKind", KindText(parts, first));
    for (const ObjectHandle& component : components)
        MarkComponent(document, component, merged);
    merged.AddChild("LoggingInfo", first.GetChild("LoggingInfo"));

    StartTimes starts(state);
    sequence.AddChild("TrackGroup", MakePicture(state, parts, starts));
    const Sound sound = MakeSound(state, parts, starts);
    sequence.AddChild("TrackGroup", sound.group);
    AddClips(document, parts, sequence, sound.channels, merged);
    merged.AddChild("AudioComponentChain",
                    MakeEmptyAudioChain(document, kMonoType, TickText(kSampleTicks48k)));
    merged.AddChild("AudioClipChannelGroups",
                    MakeChannelGroups(document, {.kind = kMono, .channels = sound.channels}));

    const std::string_view format = first.GetChild("LoggingInfo").GetProperty("TimecodeFormat");
    if (!format.empty())
        sequence.SetPropertyShared("MZ.Sequence.VideoTimeDisplayFormat", format);
    return merged;
}

} // namespace XPJ

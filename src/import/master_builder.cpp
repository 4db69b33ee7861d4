#include "import/master_builder.h"

#include "core/numbers.h"
#include "project/channel_groups.h"
#include "xmeml/formats.h"
#include "import/logging.h"
#include "import/markers.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

// Camera formats whose sound is held in its own way.
struct CodecMarks {
    bool holdsOneStream = false; // DNxHD, XDCAM: all channels in one stream
    bool holdsMono = false;      // RED: every channel by itself
};

CodecMarks MarksOf(const std::vector<ObjectHandle>& videoSources)
{
    const std::string_view codec =
        videoSources.empty() ? std::string_view() : videoSources.front().GetProperty("VelaCodec");
    const auto contains = [codec](std::string_view mark) {
        return codec.find(mark) != std::string_view::npos;
    };
    return {contains("DNxHD") || contains("XDCAM"), contains("RED")};
}

ObjectHandle MakeClip(Document& document, Name className, MediaType type, ObjectHandle source,
                      const ClipForm& form)
{
    const ObjectHandle clip = document.NewObject(className);
    clip.SetPropertyShared("mediatype", MediaTypeText(type));
    clip.SetProperty("ClipID", NewGuidText());
    clip.SetPropertyShared("FrameRate", source.GetProperty("FrameRate"));
    if (form.speed != 1.0)
        clip.SetProperty("PlaybackSpeed", DoubleToString(form.speed));
    if (form.playBackwards)
        clip.SetPropertyShared("PlayBackwards", "true");
    clip.SetPropertyShared("InUse", form.inUse ? "true" : "false");
    clip.AddChild("Source", source);
    return clip;
}

// A picture without a frame length of its own counts in that of the element.
Ticks PointTicksOf(ObjectHandle element, ObjectHandle clip)
{
    const Ticks own = Int64Property(clip, "FrameRate");
    if (own != kAnyFrameTicks)
        return own;
    const Ticks stated = TicksOfRate(element.GetChild("rate"));
    return stated != 0 ? stated : kNtscFrameTicks;
}

// Browser clips state -1 for points that are not set.
void AddPoint(ObjectHandle element, Name key, Ticks unit, ObjectHandle clip, Name newKey)
{
    if (HasValue(element, key) && Int64Property(element, key) >= 0)
        clip.SetProperty(newKey, TickText(MultiplyTicks(Int64Property(element, key), unit)));
}

ObjectHandle MakeMasterVideoClip(Document& document, ObjectHandle element, ObjectHandle source)
{
    const ObjectHandle clip =
        MakeVideoClip(document, source, {.scaleToFrameSize = IsTrue(element, "scaleToFrameSize")});
    const Ticks unit = PointTicksOf(element, clip);
    AddPoint(element, "in", unit, clip, "InPoint");
    AddPoint(element, "out", unit, clip, "OutPoint");
    return clip;
}

struct SoundPlan {
    AudioKind sound;
    int channelsOfClip = 0;
    bool isOneClip = false; // the first source carries everything
};

SoundPlan PlanSound(const FileSources& sources, const AudioKind& sound, bool isWide)
{
    const CodecMarks marks = MarksOf(sources.video);
    if (marks.holdsOneStream) {
        const int channels = IntProperty(sources.audio.front(), "fcpaudiochannelcount", 1);
        return {{kMono, channels}, channels, true};
    }
    const AudioKind kind = marks.holdsMono ? AudioKind{kMono, 1} : sound;
    return {kind, ChannelsOfClip(kind, isWide), false};
}

ObjectHandle MakeMasterAudioClip(Document& document, ObjectHandle element, ObjectHandle source,
                                 const SoundPlan& plan, Ticks markerTicks)
{
    const ObjectHandle clip = MakeAudioClip(document, source);
    clip.SetPropertyShared("Gain", "1.0");
    AddPoint(element, "velaTicksIn", 1, clip, "InPoint");
    AddPoint(element, "velaTicksOut", 1, clip, "OutPoint");
    for (int channel = 0; channel < plan.channelsOfClip; ++channel)
        AddChannel(document, clip, static_cast<std::uint64_t>(channel), source);
    const Ticks unit = markerTicks != 0 ? markerTicks : Int64Property(source, "FrameRate");
    clip.AddChild("Markers", TranslateMarkers(document, element, unit));
    clip.SetProperty("AudioChannelLayout", ChannelLayoutText(plan.sound.kind, plan.channelsOfClip));
    return clip;
}

// False when the sources have no sound to show.
bool AddSound(Document& document, ObjectHandle element, const FileSources& sources,
              const SoundPlan& plan, bool isWide, ObjectHandle master)
{
    if (plan.isOneClip && plan.channelsOfClip < 1)
        return false;
    const Ticks markerTicks =
        sources.video.empty() ? 0 : Int64Property(sources.video.front(), "FrameRate");
    int total = 0;
    for (const ObjectHandle& source : sources.audio) {
        master.AddChild("Clip", MakeMasterAudioClip(document, element, source, plan, markerTicks));
        total += plan.channelsOfClip;
        if (plan.isOneClip)
            break;
    }
    master.AddChild("AudioClipChannelGroups",
                    MakeChannelGroups(document, {.kind = plan.sound.kind,
                                                 .channels = total,
                                                 .isOneClip = plan.isOneClip || isWide}));
    return true;
}

ObjectHandle ClipOfClass(ObjectHandle master, std::string_view className)
{
    for (const ObjectHandle& clip : master.GetChildren("Clip"))
        if (clip.GetName() == className)
            return clip;
    return {};
}

} // namespace

ObjectHandle MakeVideoClip(Document& document, ObjectHandle source, const ClipForm& form)
{
    const ObjectHandle clip = MakeClip(document, "VideoClip", MediaType::Video, source, form);
    clip.SetPropertyShared("ScaleToFrameSize", form.scaleToFrameSize ? "true" : "false");
    clip.SetPropertyShared("FieldProcessing", "0");
    clip.SetPropertyShared("ReverseFieldDominance", "false");
    clip.SetPropertyShared("DeinterlaceOnHold", "false");
    clip.SetPropertyShared("HoldFilters", "false");
    clip.SetPropertyShared("FrameHold", "0");
    clip.SetProperty("FrameHoldStart", TickText(kNoTime));
    clip.SetPropertyShared("PosterFrame", "0");
    if (form.frameBlending)
        clip.SetPropertyShared("TimeInterpolationType", "1");
    return clip;
}

ObjectHandle MakeAudioClip(Document& document, ObjectHandle source, const ClipForm& form)
{
    return MakeClip(document, "AudioClip", MediaType::Audio, source, form);
}

void AddChannel(Document& document, ObjectHandle audioClip, std::uint64_t channelIndex,
                ObjectHandle content)
{
    const ObjectHandle channel = document.NewObject("SecondaryContent");
    channel.SetProperty("ChannelIndex", UintToString(channelIndex));
    channel.AddChild("Content", content);
    audioClip.AddChild("SecondaryContentItem", channel);
}

ObjectHandle MakeSequenceSource(Document& document, MediaType type, ObjectHandle sequence,
                                Ticks rateTicks, Ticks duration, Ticks boundary)
{
    const ObjectHandle source = type == MediaType::Video
                                    ? document.NewObject("VideoSequenceSource")
                                    : document.NewObject("AudioSequenceSource");
    source.SetProperty("FrameRate", TickText(rateTicks));
    source.SetProperty("OriginalDuration", TickText(duration));
    source.SetProperty("StartBoundary", TickText(boundary));
    source.SetProperty("EndBoundary", TickText(boundary));
    source.SetPropertyShared("BoundariesAreHard", "true");
    source.AddChild("Sequence", sequence);
    return source;
}

ObjectHandle BuildMasterClip(const ImportState& state, ObjectHandle element,
                             const FileSources& sources, const AudioKind& sound,
                             const MasterForm& form)
{
    Document& document = state.document;
    const ObjectHandle master = document.NewObject("MasterClip");
    AddUid(master);
    master.SetProperty("Name", form.name.empty() ? element.GetProperty("name") : form.name);
    for (const ObjectHandle& source : sources.video)
        master.AddChild("Clip", MakeMasterVideoClip(document, element, source));

    const bool hasSound =
        sound.kind >= 0 && !sources.audio.empty() &&
        AddSound(document, element, sources, PlanSound(sources, sound, form.wideMulticlip),
                 form.wideMulticlip, master);
    // The markers of a clip stand on its sound; a silent clip's on its picture.
    const Ticks unit = PointTicksOf(element, VideoClipOf(master));
    ObjectHandle marked = hasSound ? ObjectHandle() : element;
    for (const ObjectHandle& clip : master.GetChildren("Clip")) {
        if (clip.GetName() != "VideoClip")
            break;
        clip.AddChild("Markers", TranslateMarkers(document, marked, unit));
        marked = {};
    }

    master.AddChild("LoggingInfo",
                    element ? MakeLoggingInfo(state, element) : MakeDefaultLoggingInfo(document));
    if (!sources.video.empty()) {
        const ObjectHandle chain = document.NewObject("VideoComponentChain");
        chain.SetPropertyShared("NextComponentID", "1");
        master.AddChild("VideoComponentChain", chain);
    }
    return master;
}

AudioKind SplitStereo(const ImportState& state, AudioKind sound, bool exploded)
{
    if (sound.kind == kStereo && !state.sn2vlMode && !exploded)
        sound.kind = kStereoPair;
    return sound;
}

ObjectHandle VideoClipOf(ObjectHandle master)
{
    return ClipOfClass(master, "VideoClip");
}

ObjectHandle FirstSourceOf(ObjectHandle master)
{
    return FindPath(master, {"Clip", "Source"});
}

ObjectHandle SequenceOf(ObjectHandle master)
{
    return FirstSourceOf(master).GetChild("Sequence");
}

std::vector<MasterChannel> ChannelsOf(ObjectHandle master)
{
    std::vector<MasterChannel> channels;
    for (const ObjectHandle& clip : master.GetChildren("Clip"))
        if (clip.GetName() == "AudioClip")
            for (const ObjectHandle& channel : clip.GetChildren("SecondaryContentItem"))
                channels.push_back({clip, channel});
    return channels;
}

} // namespace XPJ

#include "import/masters.h"

#include "core/numbers.h"
#include "import/effects.h"
#include "import/logging.h"
#include "import/markers.h"
#include "project/channel_groups.h"
#include "project/clips.h"
#include "project/objects.h"
#include "xmeml/file_audio.h"

#include <algorithm>

namespace XPJ {

namespace {

// ---- Which master an element means

MasterClipHandle FindFile(const ImportState& state, const MediaQuery& query, ConstHandle item)
{
    if (const FileElement file = FileOfItem(state.files, item))
        return FindMedia(state.masters.registry, query, state.files.IdOf(file));
    return {};
}

MasterClipHandle FindReferenced(const ImportState& state, const MediaQuery& query, ConstHandle item)
{
    const ConstHandle nested = item.GetChild("sequence");
    if (const MasterClipHandle master = state.sequences.MasterOf(state.sequences.IdOf(nested)))
        return master;
    const std::string_view fileId = item.GetProperty("fileid");
    if (const MasterClipHandle master = FindMedia(state.masters.registry, query, fileId))
        return master;
    return state.sequences.MasterOf(item.GetProperty("sequenceid"));
}

MasterClipHandle FindInMedia(const ImportState& state, const MediaQuery& query, ConstHandle item)
{
    for (const FileElement& file : FilesOfMedia(state.files, item.GetChild("media")))
        if (const MasterClipHandle master =
                FindMedia(state.masters.registry, query, state.files.IdOf(file)))
            return master;
    return {};
}

MasterClipHandle FindSelf(const ImportState& state, const MediaQuery& query, ConstHandle item)
{
    const std::string_view id = item.GetProperty("id");
    if (const MasterClipHandle master =
            state.masters.registry.Find({query.masterClipId, id, 0, query.type}))
        return master;
    return state.sequences.MasterOf(id);
}

using Search = MasterClipHandle (*)(const ImportState&, const MediaQuery&, ConstHandle);
constexpr Search kSearches[] = {FindFile, FindReferenced, FindInMedia, FindSelf};

// ---- A new master

// Video without a frame length of its own counts in that of the element; in open interchange points
// always do.
Ticks PointTicksOf(const ImportState& state, ConstHandle element, ObjectHandle clip)
{
    const Ticks own = Int64Property(clip, "FrameRate");
    const Ticks stated = TicksOfRate(element.GetChild("rate"));
    if (own != kAnyFrameTicks && !(state.options.settings.openInterchange && stated != 0))
        return own;
    return stated != 0 ? stated : kNtscFrameTicks;
}

// Browser clips state -1 for points that are not set.
void AddPoint(const StatedTime& time, Ticks unit, ObjectHandle clip, Name key)
{
    if (time.isPresent && time.value >= 0)
        clip.SetProperty(key, TickText(MultiplyTicks(time.value, unit)));
}

ObjectHandle MakeMasterVideoClip(const ImportState& state, const ClipItem& element,
                                 ObjectHandle source)
{
    const ObjectHandle clip = MakeVideoClip(
        state.document, source, {.scaleToFrameSize = IsTrue(element, "scaleToFrameSize")});
    const Ticks unit = PointTicksOf(state, element, clip);
    AddPoint(element.times.in, unit, clip, "InPoint");
    AddPoint(element.times.out, unit, clip, "OutPoint");
    return clip;
}

// How the channels of the sources become those of clips.
struct AudioPlan {
    AudioKind audio;
    int channelsOfClip = 0;
    bool isOneClip = false; // the first source carries everything
};

// Some camera formats hold their audio in their own way: all channels in one stream, or each by
// itself.
AudioPlan PlanAudio(const MasterFields& fields)
{
    const auto isCodec = [&](std::string_view name) {
        return fields.sources.codec.find(name) != std::string_view::npos;
    };
    if (isCodec("DNxHD") || isCodec("XDCAM")) {
        const int channels = fields.sources.sharedChannels;
        return {{kMono, channels}, channels, true};
    }
    const AudioKind audio = isCodec("RED") ? AudioKind{kMono, 1} : fields.audio;
    return {audio, ChannelsOfClip(audio, fields.isWide), false};
}

// Ticks a frame of a clip and of its markers; 0 where it counts in samples.
struct AudioUnits {
    Ticks points = 0;
    Ticks markers = 0;
};

ObjectHandle MakeMasterAudioClip(Document& document, const ClipItem& element, ObjectHandle source,
                                 const AudioPlan& plan, const AudioUnits& units)
{
    const ObjectHandle clip = MakeAudioClip(document, source);
    clip.SetPropertyShared("Gain", "1.0");
    AddPoint(element.times.exactIn, 1, clip, "InPoint");
    AddPoint(element.times.exactOut, 1, clip, "OutPoint");
    if (units.points != 0 && !element.times.exactIn.isPresent)
        AddPoint(element.times.in, units.points, clip, "InPoint");
    if (units.points != 0 && !element.times.exactOut.isPresent)
        AddPoint(element.times.out, units.points, clip, "OutPoint");
    for (int channel = 0; channel < plan.channelsOfClip; ++channel)
        AddChannel(document, clip, static_cast<std::uint64_t>(channel), source);
    const Ticks unit = units.markers != 0 ? units.markers : Int64Property(source, "FrameRate");
    clip.AddChild("Markers", TranslateMarkers(document, element, unit));
    clip.SetProperty("AudioChannelLayout", ChannelLayoutText(plan.audio.kind, plan.channelsOfClip));
    return clip;
}

// False when there is no audio to show.
bool AddAudio(const ImportState& state, const ClipItem& element, const MasterFields& fields,
              MasterClipHandle master)
{
    Document& document = state.document;
    const MediaSources& sources = fields.sources;
    if (fields.audio.kind < 0 || sources.audio.empty())
        return false;
    const AudioPlan plan = PlanAudio(fields);
    if (plan.isOneClip && plan.channelsOfClip < 1)
        return false;
    AudioUnits units;
    if (!sources.video.empty())
        units.markers = Int64Property(sources.video.front(), "FrameRate");
    else if (IsOpen(state) && element.GetName() == "clip") // to the letter they have no points
        units.points = TicksOfRate(element.GetChild("rate"));
    int total = 0;
    for (const ObjectHandle& source : sources.audio) {
        master.AddChild("Clip", MakeMasterAudioClip(document, element, source, plan, units));
        total += plan.channelsOfClip;
        if (plan.isOneClip)
            break;
    }
    master.AddChild("AudioClipChannelGroups",
                    MakeChannelGroups(document, {.kind = plan.audio.kind,
                                                 .channels = total,
                                                 .isOneClip = plan.isOneClip || fields.isWide}));
    return true;
}

// The markers of a clip belong to its audio, without audio to its first video.
void AddVideoMarkers(const ImportState& state, ConstHandle element, bool hasAudio,
                     MasterClipHandle master)
{
    const Ticks unit = PointTicksOf(state, element, master.VideoClip());
    ConstHandle owner = hasAudio ? ConstHandle() : element;
    for (const ObjectHandle& clip : master.GetChildren("Clip")) {
        if (clip.GetName() != "VideoClip")
            break;
        clip.AddChild("Markers", TranslateMarkers(state.document, owner, unit));
        owner = {};
    }
}

} // namespace

MasterClipHandle FindMedia(const MasterRegistry& registry, const MediaQuery& query,
                           std::string_view mediaId)
{
    for (const int index : {query.sourceTrack, query.trackIndex, 0})
        if (index >= 0)
            if (const MasterClipHandle master =
                    registry.Find({query.masterClipId, mediaId, index, query.type}))
                return master;
    return registry.Find({{}, mediaId, 0, query.type});
}

int SourceTrackOf(ConstHandle item)
{
    return std::max(IntProperty(item.GetChild("sourcetrack"), "trackindex"), 0) - 1;
}

MasterClipHandle MasterForItem(const ImportState& state, ConstHandle item, MediaType type,
                               int trackIndex)
{
    const MasterClipHandle master = FindMaster(state, item, type, trackIndex);
    return master.FirstClip(type) ? master : MasterClipHandle();
}

MasterClipHandle FindMaster(const ImportState& state, ConstHandle item, MediaType type,
                            int trackIndex)
{
    if (const ConstHandle multiclip = FindMulticlip(item)) {
        if (!IsCollapsed(multiclip))
            return state.masters.OfMulticlip(multiclip.GetProperty("id"));
        item = state.angles.Of(multiclip).clip;
    }
    const MediaQuery query{.masterClipId = item.GetProperty("masterclipid"),
                           .type = type,
                           .sourceTrack = SourceTrackOf(item),
                           .trackIndex = trackIndex};
    for (const Search search : kSearches)
        if (const MasterClipHandle master = search(state, query, item))
            return master;
    return {};
}

MasterClipHandle BuildMasterClip(ImportState& state, const ClipItem& element,
                                 const MasterFields& fields)
{
    Document& document = state.document;
    const MasterClipHandle master(document.NewObject("MasterClip"));
    AddUid(master);
    if (element)
        state.masters.SetOrigin(master, element);
    master.SetProperty("Name", fields.name.empty() ? element.GetProperty("name") : fields.name);
    for (const ObjectHandle& source : fields.sources.video)
        master.AddChild("Clip", MakeMasterVideoClip(state, element, source));
    const bool hasAudio = AddAudio(state, element, fields, master);
    AddVideoMarkers(state, element, hasAudio, master);
    // The markers of an item are its own, those of a sequence are in it.
    if (element.GetName() == "clip" && state.remarked.Insert(element))
        RemarkOnMarkers(state, element, LocationOfClip(state, element));

    master.AddChild("LoggingInfo",
                    element ? MakeLoggingInfo(state, element) : MakeDefaultLoggingInfo(document));
    if (!fields.sources.video.empty()) {
        const ObjectHandle chain = document.NewObject("VideoComponentChain");
        chain.SetPropertyShared("NextComponentID", "1");
        master.AddChild("VideoComponentChain", chain);
    }
    return master;
}

AudioKind SplitStereo(const ImportOptions& options, AudioKind audio, bool exploded)
{
    if (audio.kind == kStereo && !options.sn2vlMode && !exploded)
        audio.kind = kStereoPair;
    return audio;
}

FileMaster BuildFileMaster(ImportState& state, const ClipItem& element, const FileUse& use,
                           bool exploded)
{
    FileMaster result;
    result.sources = MakeFileSources(state, use);
    if (result.sources.IsEmpty())
        return result;
    const AudioKind audio = SplitStereo(state.options, AudioKindOfFile(use.file), exploded);
    const MasterClipHandle built =
        BuildMasterClip(state, element, {.sources = result.sources, .audio = audio});
    MasterRegistry& registry = state.masters.registry;
    const std::string_view masterClipId = element.GetProperty("masterclipid");
    const std::string_view fileId = state.files.IdOf(use.file);
    const bool hasVideo = !result.sources.video.empty();
    RegisterMaster(registry,
                   {.masterClipId = masterClipId,
                    .mediaId = fileId,
                    .hasVideo = hasVideo,
                    .hasAudio = !result.sources.audio.empty()},
                   built);
    result.master =
        registry.Find({masterClipId, fileId, 0, hasVideo ? MediaType::Video : MediaType::Audio});
    result.isNew = result.master == built;
    if (result.isNew)
        AddMasterEffects(state, element, use.file, built);
    return result;
}

} // namespace XPJ

#include "import/item_clips.h"

#include "core/numbers.h"
#include "import/logging.h"
#include "import/markers.h"
#include "import/masters.h"
#include "project/clips.h"
#include "project/labels.h"
#include "project/media.h"
#include "project/synthetic_items.h"
#include "xmeml/speed.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

ClipFields FieldsOf(ConstHandle item, const ItemSpeed& speed)
{
    return {.speed = speed.speed,
            .playBackwards = speed.playBackwards,
            .inUse = true,
            .scaleToFrameSize = IsTrue(item, "scaleToFrameSize"),
            .frameBlending = speed.frameBlending};
}

void AddMulticam(const ActiveAngles& angles, ConstHandle item, ObjectHandle clip)
{
    const ConstHandle multiclip = item.GetChild("multiclip");
    if (!multiclip || IsCollapsed(multiclip))
        return;
    clip.SetPropertyShared("IsMulticam", "true");
    clip.SetProperty("SelectedTrackIndex", IntToString(angles.Of(multiclip).number - 1));
}

// A still is stated as a sequence around the clip that it is taken from.
void AddFrameHold(ConstHandle item, Ticks sequenceTicks, ObjectHandle clip)
{
    const ConstHandle still = FindPath(item, {"sequence", "media", "video", "track", "clipitem"});
    const Frames position = Int64Property(still, "stillframeoffset");
    if (!HasValue(still, "stillframeoffset") || position < 0)
        return;
    const Ticks unit = RatesOfItem(still, sequenceTicks).item;
    clip.SetPropertyShared("FrameHold", "1");
    clip.SetProperty("FrameHoldStart", TickText(MultiplyTicks(position, unit)));
}

// The part of the source that an item shows, as far as its times state it.
struct SourceRange {
    Ticks in = 0;
    Ticks out = 0;
};

// A source starts at 0. An item that begins before it, begins with it; one that also ends before
// it keeps its length.
void AddPoints(const TrackContext& track, const ClipItem& item, const ItemTiming& timing,
               SourceRange range, ObjectHandle clip)
{
    const ItemTimes& times = timing.times;
    const ItemRates& rates = timing.rates;
    if (range.in < 0) {
        AddItemIssue(track, item, times.start, ImportIssue::InvalidInPoint);
        range.in = 0;
    }
    if (range.out < 0) {
        const Frames length = rates.ToItem(SubtractTicks(times.end, times.start));
        range.out = AddTicks(range.in, ScaledTicks(length, rates.item, SpeedOfItem(item).speed));
    }
    clip.SetNumber("InPoint", range.in);
    clip.SetNumber("OutPoint", range.out);
}

// A point where the document has it.
Ticks StatedPoint(const StatedTime& exact, Frames frames, Ticks unit, double speed)
{
    return exact.IsStated() ? exact.value : UnroundedTicks(frames, unit, speed);
}

// On points that were between two frames. Those before the media have an issue.
void RemarkOnPoints(const TrackContext& track, const ClipItem& item, const ItemTimes& times,
                    const SourceRange& stated, const SourceRange& range)
{
    constexpr Ticks kNoise = 2; // of products in floating point
    const auto isMoved = [](Ticks from, Ticks to) {
        return from > 0 && to >= 0 && std::max(from, to) - std::min(from, to) > kNoise;
    };
    if (isMoved(stated.in, range.in) || isMoved(stated.out, range.out))
        AddRemark(track.sequence.state.account, RemarkKind::PointRounded,
                  LocationOfItem(track, item.GetProperty("name"), times.start, times.end));
}

ObjectHandle MakeItemSubClip(ImportState& state, ConstHandle item, ObjectHandle clip,
                             MasterClipHandle master)
{
    std::string_view name = item.GetProperty("name");
    if (name.empty())
        name = FileOfItem(state.files, item).GetProperty("name");
    const SubClipParts parts = MakeSubClip(state.document, name, clip, master);
    state.masters.AddClipId(master, parts.clipId);
    return parts.subClip;
}

// The label of an item, and what is lost of it, of the markers and of what its master states.
void CopyNotes(const TrackContext& track, const ClipItem& item, const ItemTimes& times,
               ConstHandle master, ObjectHandle clip)
{
    ImportState& state = track.sequence.state;
    const auto locate = [&] {
        return LocationOfItem(track, item.GetProperty("name"), times.start, times.end);
    };
    if (!CopyLabel(state, item, clip, kClipLabel))
        RemarkOnLabel(state, item, locate());
    RemarkOnMarkers(state, item, locate);
    RemarkOnSharedMaster(state, item, master, locate);
}

// The channel of its source that a `clipitem` plays, from 0.
int SourceChannelOf(ConstHandle item, int trackIndex)
{
    const ConstHandle sourceTrack = item.GetChild("sourcetrack");
    if (!HasValue(sourceTrack, "trackindex"))
        return trackIndex;
    return std::max(IntProperty(sourceTrack, "trackindex"), 1) - 1;
}

// The channels of a master by the numbers that items state.
class MasterChannels {
public:
    explicit MasterChannels(const ShownMaster& master) : channels_(master.channels) {}

    bool IsEmpty() const { return channels_.empty(); }
    const std::vector<MasterChannel>& All() const { return channels_; }
    // Tracks beyond the channels of a file start over with its first.
    int Reduce(int channel) const { return channel % static_cast<int>(channels_.size()); }
    const MasterChannel& At(int channel) const
    {
        return channels_[static_cast<std::size_t>(Reduce(channel))];
    }

private:
    const std::vector<MasterChannel>& channels_;
};

// On a channel that an item states and its media does not have.
void RemarkOnChannel(const TrackContext& track, const ClipItem& item, const ItemTimes& times,
                     const MasterChannels& channels)
{
    const ConstHandle sourceTrack = item.GetChild("sourcetrack");
    const int stated = IntProperty(sourceTrack, "trackindex");
    if (stated > std::ssize(channels.All()))
        AddRemark(track.sequence.state.account, RemarkKind::ChannelAssumed,
                  LocationOfItem(track, item.GetProperty("name"), times.start, times.end),
                  {.detail = sourceTrack.GetProperty("trackindex")});
}

// Channels of an item whose other channels are on the following tracks: those of the items there
// that it is linked to, and on from the last one where links are missing.
std::vector<int> LinkedChannels(const TrackContext& track, ConstHandle item,
                                const MasterChannels& source, std::size_t count)
{
    std::vector<int> channels;
    const LinkIndex& index = track.sequence.links;
    for (const ConstHandle& link : item.GetChildren("link")) {
        if (channels.size() == count)
            break;
        const LinkKey target = index.TargetOf(link);
        if (target.type == MediaType::Audio && target.track >= track.number &&
            target.track <= track.lastNumber && index.ItemAt(target))
            channels.push_back(source.Reduce(SourceChannelOf(index.ItemAt(target), track.index)));
    }
    int next =
        channels.empty() ? source.Reduce(SourceChannelOf(item, track.index)) : channels.back() + 1;
    while (channels.size() < count)
        channels.push_back(next++);
    return channels;
}

// The dialects mark stereo items also where tracks are not exploded.
bool FollowsLinks(const SequenceContext& sequence, int channelType)
{
    const ImportOptions& options = sequence.state.options;
    return (options.sn2vlMode || options.settings.openInterchange || sequence.exploded) &&
           (channelType == kStereoType || channelType == kSurroundType);
}

void AddContent(Document& document, const MasterChannel& channel, ObjectHandle audioClip)
{
    const ObjectHandle source = audioClip.GetChild("Source");
    AddChannel(document, audioClip,
               static_cast<std::uint64_t>(Int64Property(channel.channel, "ChannelIndex")),
               source.HasChild("Sequence") ? source : channel.channel.GetChild("Content"));
}

void AddItemChannels(const TrackContext& track, ConstHandle item, int channelType,
                     const MasterChannels& channels, ObjectHandle clip)
{
    Document& document = track.sequence.state.document;
    if (channelType == kAdaptiveType) {
        AddAdaptiveChannels(document, channels.All(), clip);
    } else if (FollowsLinks(track.sequence, channelType)) {
        const auto count = static_cast<std::size_t>(ChannelCountOf(channelType));
        for (const int channel : LinkedChannels(track, item, channels, count))
            AddContent(document, channels.At(channel), clip);
    } else {
        AddContent(document, channels.At(SourceChannelOf(item, track.index)), clip);
    }
}

// A point that an item of this system's own documents states exactly.
std::optional<Ticks> ExactPoint(const StatedTime& time)
{
    return time.IsStated() ? std::optional(time.value) : std::nullopt;
}

// Below 0 for every point before the source, also for one that scaling would round up to its start.
Ticks OutTicks(Frames out, Ticks frameTicks, double speed)
{
    return out < 0 ? kNotStated : ScaledTicks(out, frameTicks, speed);
}

} // namespace

ObjectHandle MakeVideoSubClip(const TrackContext& track, const ClipItem& item,
                              const ItemTiming& timing)
{
    ImportState& state = track.sequence.state;
    Document& document = state.document;
    const ShownMaster& shown =
        state.masters.Shown(FindMaster(state, item, MediaType::Video, track.index));
    if (!shown.videoClip)
        return {};
    const Ticks unit = timing.rates.item;
    const ItemSpeed speed = SpeedOfItem(item);
    const ObjectHandle source = SourceForItem(document, state.sequences, MediaType::Video,
                                              shown.videoClip.GetChild("Source"), unit);
    const ObjectHandle clip = MakeVideoClip(document, source, FieldsOf(item, speed));
    CopyNotes(track, item, timing.times, shown.master, clip);

    SourceRange range{.in = ScaledTicks(timing.times.in, unit, speed.speed),
                      .out = OutTicks(timing.times.out, unit, speed.speed)};
    if (state.options.settings.openInterchange)
        range = {.in = ExactPoint(item.times.exactIn).value_or(range.in),
                 .out = ExactPoint(item.times.exactOut).value_or(range.out)};
    RemarkOnPoints(track, item, timing.times,
                   {.in = StatedPoint(item.times.exactIn, timing.times.in, unit, speed.speed),
                    .out = StatedPoint(item.times.exactOut, timing.times.out, unit, speed.speed)},
                   range);
    AddPoints(track, item, timing, range, clip);
    AddFrameHold(item, track.sequence.rates.edges, clip);
    clip.AddChild("Markers", TranslateMarkers(document, item, unit));
    AddMulticam(state.angles, item, clip);
    return MakeItemSubClip(state, item, clip, shown.master);
}

ObjectHandle MakeAudioSubClip(const TrackContext& track, const ClipItem& item, int channelType,
                              const ItemTiming& timing)
{
    ImportState& state = track.sequence.state;
    Document& document = state.document;
    const ShownMaster& shown =
        state.masters.Shown(FindMaster(state, item, MediaType::Audio, track.index));
    const MasterChannels channels(shown);
    if (channels.IsEmpty())
        return {};
    const Ticks unit = timing.rates.item;
    const ItemSpeed speed = SpeedOfItem(item);
    const int sourceChannel = channels.Reduce(SourceChannelOf(item, track.index));
    RemarkOnChannel(track, item, timing.times, channels);
    const ObjectHandle source = SourceForItem(document, state.sequences, MediaType::Audio,
                                              channels.At(sourceChannel).clip.GetChild("Source"),
                                              track.sequence.rates.audio);
    const ObjectHandle clip = MakeAudioClip(document, source, FieldsOf(item, speed));
    CopyNotes(track, item, timing.times, shown.master, clip);

    const Frames delay = Int64Property(item, "mediadelay");
    const Ticks in = ScaledTicks(AddTicks(timing.times.in, delay), unit, speed.speed);
    const Ticks out = OutTicks(AddTicks(timing.times.out, delay), unit, speed.speed);
    const SourceRange range{.in = ExactPoint(item.times.exactIn).value_or(in),
                            .out = ExactPoint(item.times.exactOut).value_or(out)};
    RemarkOnPoints(
        track, item, timing.times,
        {.in = StatedPoint(item.times.exactIn, AddTicks(timing.times.in, delay), unit, speed.speed),
         .out = StatedPoint(item.times.exactOut, AddTicks(timing.times.out, delay), unit,
                            speed.speed)},
        range);
    AddPoints(track, item, timing, range, clip);
    const int channelCount = ChannelCountOf(channelType);
    clip.SetNumber("SecondaryIndex", sourceChannel);
    clip.SetPropertyShared("Gain", HasValue(item, "velaGain") ? item.GetProperty("velaGain")
                                                              : std::string_view("1.0"));
    clip.AddChild("Markers", TranslateMarkers(document, item, unit));
    clip.SetNumber("ChannelType", channelType);
    clip.SetNumber("NumChannels", channelCount);
    clip.SetProperty("AudioChannelLayout", ChannelLayoutText(channelType, channelCount));
    AddMulticam(state.angles, item, clip);
    AddItemChannels(track, item, channelType, channels, clip);
    return MakeItemSubClip(state, item, clip, shown.master);
}

ObjectHandle SourceForItem(Document& document, SequenceCatalog& sequences, MediaType type,
                           ObjectHandle source, Ticks rateTicks)
{
    const ObjectHandle sequence = source.GetChild("Sequence");
    if (!sequence)
        return source;
    if (!sequences.HasBegun(sequence))
        sequences.AddShown(sequence);
    return MakeSequenceSource(
        document, sequence,
        {.type = type, .rate = rateTicks, .duration = Int64Property(source, "OriginalDuration")});
}

void AddAdaptiveChannels(Document& document, const std::vector<MasterChannel>& channels,
                         ObjectHandle audioClip)
{
    for (std::size_t i = 0; i < kMaxTrackChannels; ++i)
        if (i < channels.size())
            AddContent(document, channels[i], audioClip);
        else
            AddChannel(document, audioClip, kNoChannel, {});
}

} // namespace XPJ

#include "import/item_clips.h"

#include "core/numbers.h"
#include "import/logging.h"
#include "import/markers.h"
#include "project/clips.h"
#include "project/labels.h"
#include "project/media.h"
#include "project/synthetic_items.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

ClipFields FieldsOf(const ItemContext& item)
{
    return {.speed = item.speed.speed,
            .playBackwards = item.speed.playBackwards,
            .inUse = true,
            .scaleToFrameSize = IsTrue(item.element, "scaleToFrameSize"),
            .frameBlending = item.speed.frameBlending};
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

// A number of the item's frames in its source.
Ticks TicksAt(const ItemContext& item, Frames frames)
{
    return ScaledTicks(frames, item.rates.item, item.speed.speed);
}

// The part of the source that an item shows, as far as its times state it.
struct SourceRange {
    Ticks in = 0;
    Ticks out = 0;
};

// A source starts at 0. An item that begins before it, begins with it; one that also ends before
// it keeps its length.
void AddPoints(const ItemContext& item, SourceRange range, ObjectHandle clip)
{
    const ItemTimes& times = item.times;
    if (range.in < 0) {
        AddItemIssue(item.track, item.element, times.start, ImportIssue::InvalidInPoint);
        range.in = 0;
    }
    if (range.out < 0) {
        const Frames length = item.rates.ToItem(SubtractTicks(times.end, times.start));
        range.out = AddTicks(range.in, TicksAt(item, length));
    }
    clip.SetNumber("InPoint", range.in);
    clip.SetNumber("OutPoint", range.out);
}

// A point where the document has it.
Ticks StatedPoint(const ItemContext& item, const StatedTime& exact, Frames frames)
{
    return exact.IsStated() ? exact.value
                            : UnroundedTicks(frames, item.rates.item, item.speed.speed);
}

// On points that were between two frames. Those before the media have an issue.
void RemarkOnPoints(const ItemContext& item, Frames in, Frames out, const SourceRange& range)
{
    const StatedTimes& times = item.element.times;
    const auto isMoved = [](Ticks from, Ticks to) {
        return from > 0 && to >= 0 && std::max(from, to) - std::min(from, to) > kSpeedNoise;
    };
    if (isMoved(StatedPoint(item, times.exactIn, in), range.in) ||
        isMoved(StatedPoint(item, times.exactOut, out), range.out))
        AddRemark(item.track.sequence.state.account, RemarkKind::PointRounded, item.location);
}

ObjectHandle MakeItemSubClip(const ItemContext& item, ObjectHandle clip)
{
    ImportState& state = item.track.sequence.state;
    const std::string_view own = item.element.GetProperty("name");
    const std::string_view name = own.empty() ? item.file.GetProperty("name") : own;
    const SubClipParts parts = MakeSubClip(state.document, name, clip, item.shown.master);
    state.masters.AddClipId(item.shown.master, parts.clipId);
    return parts.subClip;
}

// The label of an item, and what is lost of it, of the markers and of what its master states.
void CopyNotes(const ItemContext& item, ObjectHandle clip)
{
    ImportState& state = item.track.sequence.state;
    if (!CopyLabel(state, item.element, clip, kClipLabel))
        RemarkOnLabel(state, item.element, item.location);
    RemarkOnMarkers(state, item.element, item.location);
    RemarkOnSharedMaster(state, item.element, item.shown.master, item.location);
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
void RemarkOnChannel(const ItemContext& item, const MasterChannels& channels)
{
    const ConstHandle sourceTrack = item.element.GetChild("sourcetrack");
    const int stated = IntProperty(sourceTrack, "trackindex");
    if (stated > std::ssize(channels.All()))
        AddRemark(item.track.sequence.state.account, RemarkKind::ChannelAssumed, item.location,
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
Ticks OutTicks(const ItemContext& item, Frames out)
{
    return out < 0 ? kNotStated : TicksAt(item, out);
}

} // namespace

ObjectHandle MakeVideoSubClip(const ItemContext& item)
{
    const SequenceContext& sequence = item.track.sequence;
    ImportState& state = sequence.state;
    Document& document = state.document;
    const ClipItem& element = item.element;
    const Ticks unit = item.rates.item;
    const ObjectHandle source = SourceForItem(document, state.sequences, MediaType::Video,
                                              item.shown.videoClip.GetChild("Source"), unit);
    const ObjectHandle clip = MakeVideoClip(document, source, FieldsOf(item));
    CopyNotes(item, clip);

    const Frames in = item.times.in;
    const Frames out = item.times.out;
    SourceRange range{.in = TicksAt(item, in), .out = OutTicks(item, out)};
    if (state.options.settings.openInterchange)
        range = {.in = ExactPoint(element.times.exactIn).value_or(range.in),
                 .out = ExactPoint(element.times.exactOut).value_or(range.out)};
    RemarkOnPoints(item, in, out, range);
    if (IsOpen(state) && range.out <= range.in)
        range.out = kNotStated;
    AddPoints(item, range, clip);
    AddFrameHold(element, sequence.rates.edges, clip);
    clip.AddChild("Markers", TranslateMarkers(document, element, unit));
    AddMulticam(state.angles, element, clip);
    return MakeItemSubClip(item, clip);
}

ObjectHandle MakeAudioSubClip(const ItemContext& item, int channelType)
{
    const TrackContext& track = item.track;
    ImportState& state = track.sequence.state;
    Document& document = state.document;
    const ClipItem& element = item.element;
    const MasterChannels channels(item.shown);
    const int sourceChannel = channels.Reduce(SourceChannelOf(element, track.index));
    RemarkOnChannel(item, channels);
    const ObjectHandle source = SourceForItem(document, state.sequences, MediaType::Audio,
                                              channels.At(sourceChannel).clip.GetChild("Source"),
                                              track.sequence.rates.audio);
    const ObjectHandle clip = MakeAudioClip(document, source, FieldsOf(item));
    CopyNotes(item, clip);

    const Frames delay = Int64Property(element, "mediadelay");
    const Frames in = AddTicks(item.times.in, delay);
    const Frames out = AddTicks(item.times.out, delay);
    const SourceRange range{.in = ExactPoint(element.times.exactIn).value_or(TicksAt(item, in)),
                            .out =
                                ExactPoint(element.times.exactOut).value_or(OutTicks(item, out))};
    RemarkOnPoints(item, in, out, range);
    AddPoints(item, range, clip);
    const int channelCount = ChannelCountOf(channelType);
    clip.SetNumber("SecondaryIndex", sourceChannel);
    clip.SetPropertyShared("Gain", HasValue(element, "velaGain") ? element.GetProperty("velaGain")
                                                                 : std::string_view("1.0"));
    clip.AddChild("Markers", TranslateMarkers(document, element, item.rates.item));
    clip.SetNumber("ChannelType", channelType);
    clip.SetNumber("NumChannels", channelCount);
    clip.SetProperty("AudioChannelLayout", ChannelLayoutText(channelType, channelCount));
    AddMulticam(state.angles, element, clip);
    AddItemChannels(track, element, channelType, channels, clip);
    return MakeItemSubClip(item, clip);
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

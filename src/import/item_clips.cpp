#include "import/item_clips.h"

#include "core/numbers.h"
#include "xmeml/formats.h"
#include "import/logging.h"
#include "import/markers.h"
#include "import/master_builder.h"
#include "import/master_clips.h"
#include "xmeml/files.h"
#include "import/multiclips.h"
#include "xmeml/speed.h"
#include "import/track_items.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

ClipForm FormOf(ObjectHandle item, const ItemSpeed& speed)
{
    return {.speed = speed.speed,
            .playBackwards = speed.playBackwards,
            .inUse = true,
            .scaleToFrameSize = IsTrue(item, "scaleToFrameSize"),
            .frameBlending = speed.frameBlending};
}

void AddMulticam(const ImportState& state, ObjectHandle item, ObjectHandle clip)
{
    const ObjectHandle multiclip = item.GetChild("multiclip");
    if (!multiclip || IsCollapsed(multiclip))
        return;
    clip.SetPropertyShared("IsMulticam", "true");
    clip.SetProperty("SelectedTrackIndex", IntToString(ActiveAngle(state, multiclip) - 1));
}

// A still stands as a sequence around the clip that it is taken from.
void AddFrameHold(ObjectHandle item, Ticks sequenceTicks, ObjectHandle clip)
{
    const ObjectHandle still = FindPath(item, {"sequence", "media", "video", "track", "clipitem"});
    const Frames position = Int64Property(still, "stillframeoffset");
    if (!HasValue(still, "stillframeoffset") || position < 0)
        return;
    const Ticks unit = RatesOfItem(still, sequenceTicks).item;
    clip.SetPropertyShared("FrameHold", "1");
    clip.SetProperty("FrameHoldStart", TickText(MultiplyTicks(position, unit)));
}

// A source starts at 0. An item that begins before it, begins with it; one that also ends before
// it keeps its length.
void AddPoints(const TrackContext& context, ObjectHandle item, const ItemTimes& times,
               const ItemRates& rates, Ticks in, Ticks out, ObjectHandle clip)
{
    if (in < 0) {
        AddItemIssue(context, item, times.start, ImportIssue::InvalidInPoint);
        in = 0;
    }
    if (out < 0) {
        const Frames length = rates.ToItem(Minus(times.end, times.start));
        out = AddTicks(in, ScaledTicks(length, rates.item, SpeedOfItem(item).speed));
    }
    clip.SetProperty("InPoint", TickText(in));
    clip.SetProperty("OutPoint", TickText(out));
}

ObjectHandle MakeSubClip(const TrackContext& context, ObjectHandle item, ObjectHandle clip,
                         ObjectHandle master)
{
    ImportState& state = context.sequence.state;
    const ObjectHandle result = state.document.NewObject("SubClip");
    const ObjectHandle named = HasValue(item, "name") ? item : FileOfItem(state, item);
    result.SetPropertyShared("Name", named.GetProperty("name"));
    const ObjectHandle clipId = state.document.NewObject("ChildClipIDSerializer");
    clipId.SetPropertyShared("ID", clip.GetProperty("ClipID"));
    result.AddChild("Clip", clip);
    result.AddChild("MasterClip", master);
    result.AddChild("ChildClipID", clipId);
    state.clipIds.push_back({master, clipId});
    return result;
}

// The channel of its source that a `clipitem` means, from 0.
int SourceTrackOf(ObjectHandle item, int trackIndex)
{
    const ObjectHandle sourceTrack = item.GetChild("sourcetrack");
    if (!HasValue(sourceTrack, "trackindex"))
        return trackIndex;
    return std::max(IntProperty(sourceTrack, "trackindex"), 1) - 1;
}

// The channels of a master, as an item asks for them.
class ItemChannels {
public:
    explicit ItemChannels(ObjectHandle master) : channels_(ChannelsOf(master)) {}

    bool IsEmpty() const { return channels_.empty(); }
    int Count() const { return static_cast<int>(channels_.size()); }
    // Tracks beyond the channels of a file start over with its first.
    int Reduce(int channel) const { return channel % Count(); }
    const MasterChannel& At(int channel) const
    {
        return channels_[static_cast<std::size_t>(Reduce(channel))];
    }

private:
    std::vector<MasterChannel> channels_;
};

// Channels of an item whose other channels lie on the following tracks: those of the items there
// that it is linked to, and on from the last one where links are missing.
std::vector<int> LinkedChannels(const TrackContext& context, ObjectHandle item, int sourceTrack,
                                const ItemChannels& source, std::size_t count)
{
    std::vector<int> channels;
    const LinkIndex& index = context.sequence.links;
    for (const ObjectHandle& link : item.GetChildren("link")) {
        if (channels.size() == count)
            break;
        const LinkKey target = index.TargetOf(link);
        if (target.type == MediaType::Audio && target.track >= context.number &&
            target.track <= context.lastNumber && index.ItemAt(target))
            channels.push_back(source.Reduce(SourceTrackOf(index.ItemAt(target), context.index)));
    }
    int next = channels.empty() ? sourceTrack : channels.back() + 1;
    while (channels.size() < count)
        channels.push_back(next++);
    return channels;
}

bool FollowsLinks(const TrackContext& context, int channelType)
{
    return (context.sequence.state.sn2vlMode || context.sequence.exploded) &&
           (channelType == kStereoType || channelType == kSurroundType);
}

void AddItemChannels(const TrackContext& context, ObjectHandle item, int channelType,
                     int sourceTrack, const ItemChannels& channels, ObjectHandle clip)
{
    Document& document = context.sequence.state.document;
    const ObjectHandle source = clip.GetChild("Source");
    const auto add = [&](const MasterChannel& entry) {
        AddChannel(document, clip,
                   static_cast<std::uint64_t>(Int64Property(entry.channel, "ChannelIndex")),
                   source.HasChild("Sequence") ? source : entry.channel.GetChild("Content"));
    };
    if (channelType == kAdaptiveType) {
        for (int i = 0; i < kMaxAdaptiveChannels; ++i)
            if (i < channels.Count())
                add(channels.At(i));
            else
                AddChannel(document, clip, kNoChannel, {});
    } else if (FollowsLinks(context, channelType)) {
        const auto count = static_cast<std::size_t>(ChannelCountOf(channelType));
        for (const int channel : LinkedChannels(context, item, sourceTrack, channels, count))
            add(channels.At(channel));
    } else {
        add(channels.At(sourceTrack));
    }
}

// A point that an item of this system's own documents states exactly.
std::optional<Ticks> ExactPoint(ObjectHandle item, Name key)
{
    if (HasValue(item, key) && Int64Property(item, key) != kNotStated)
        return Int64Property(item, key);
    return std::nullopt;
}

// Below 0 for every point before the source, also for one that scaling would round up to its start.
Ticks OutTicks(Frames out, Ticks frameTicks, double speed)
{
    return out < 0 ? kNotStated : ScaledTicks(out, frameTicks, speed);
}

} // namespace

ObjectHandle MakeVideoSubClip(const TrackContext& context, ObjectHandle item,
                              const ItemTimes& times, const ItemRates& rates)
{
    ImportState& state = context.sequence.state;
    const ObjectHandle master = MasterForItem(state, item, MediaType::Video, context.index);
    const ObjectHandle masterClip = VideoClipOf(master);
    if (!masterClip)
        return {};
    const ItemSpeed speed = SpeedOfItem(item);
    const ObjectHandle source =
        SourceForItem(state, MediaType::Video, masterClip.GetChild("Source"), rates.item);
    const ObjectHandle clip = MakeVideoClip(state.document, source, FormOf(item, speed));
    CopyLabel(item, clip, "hfl.clip.label.name");

    AddPoints(context, item, times, rates, ScaledTicks(times.in, rates.item, speed.speed),
              OutTicks(times.out, rates.item, speed.speed), clip);
    AddFrameHold(item, context.sequence.rates.edges, clip);
    clip.AddChild("Markers", TranslateMarkers(state.document, item, rates.item));
    AddMulticam(state, item, clip);
    return MakeSubClip(context, item, clip, master);
}

ObjectHandle MakeAudioSubClip(const TrackContext& context, ObjectHandle item, int channelType,
                              const ItemTimes& times, const ItemRates& rates)
{
    ImportState& state = context.sequence.state;
    const ObjectHandle master = MasterForItem(state, item, MediaType::Audio, context.index);
    const ItemChannels channels(master);
    if (channels.IsEmpty())
        return {};
    const ItemSpeed speed = SpeedOfItem(item);
    const int sourceTrack = channels.Reduce(SourceTrackOf(item, context.index));
    const ObjectHandle source =
        SourceForItem(state, MediaType::Audio, channels.At(sourceTrack).clip.GetChild("Source"),
                      context.sequence.rates.audio);
    const ObjectHandle clip = MakeAudioClip(state.document, source, FormOf(item, speed));
    CopyLabel(item, clip, "hfl.clip.label.name");

    const Frames delay = Int64Property(item, "mediadelay");
    const Frames in = AddTicks(times.in, delay);
    const Frames out = AddTicks(times.out, delay);
    AddPoints(context, item, times, rates,
              ExactPoint(item, "velaTicksIn").value_or(ScaledTicks(in, rates.item, speed.speed)),
              ExactPoint(item, "velaTicksOut").value_or(OutTicks(out, rates.item, speed.speed)),
              clip);
    clip.SetProperty("SecondaryIndex", IntToString(sourceTrack));
    clip.SetPropertyShared("Gain", "1.0");
    clip.AddChild("Markers", TranslateMarkers(state.document, item, rates.item));
    clip.SetProperty("ChannelType", IntToString(channelType));
    clip.SetProperty("NumChannels", IntToString(ChannelCountOf(channelType)));
    clip.SetProperty("AudioChannelLayout",
                     ChannelLayoutText(channelType, ChannelCountOf(channelType)));
    AddMulticam(state, item, clip);
    AddItemChannels(context, item, channelType, sourceTrack, channels, clip);
    return MakeSubClip(context, item, clip, master);
}

void AttachClipIds(ImportState& state)
{
    for (const ImportState::ClipId& entry : state.clipIds)
        entry.master.AddChild("ChildClipID", entry.id);
    state.clipIds.clear();
}

} // namespace XPJ

#include "import/track_items.h"

#include "core/numbers.h"
#include "import/effects.h"
#include "import/item_clips.h"
#include "project/objects.h"
#include "xmeml/flags.h"

#include <algorithm>
#include <optional>

namespace XPJ {

namespace {

// Nothing, with an issue, for an item that is not in the sequence. Audio starts inside its source;
// the in point of a video is corrected later, with an issue.
std::optional<ItemTiming> TimingOf(const TrackContext& track, const ClipItem& item)
{
    ItemTiming timing;
    timing.rates = RatesOfItem(item, track.sequence.rates.edges);
    if (item.GetName() == "generatoritem") {
        const FileElement file = FileOfItem(track.sequence.state.files, item);
        timing.times = TimesOfGenerator(item, timing.rates, Int64Property(file, "duration"));
    } else {
        timing.times = TimesOfClip(item, timing.rates);
    }
    const ItemTimes& times = timing.times;
    const bool hasSource = track.type == MediaType::Video || times.out > times.in;
    if (times.start >= 0 && times.end >= 0 && hasSource)
        return timing;
    AddItemIssue(track, item, times.start, ImportIssue::InvalidStartEnd);
    return std::nullopt;
}

ItemLocation LocationOf(const TrackContext& track, ConstHandle item, const ItemTimes& times)
{
    return LocationOfItem(track, item.GetProperty("name"), times.start, times.end);
}

// The values that items of both types begin with.
ObjectHandle MakeItem(const TrackContext& track, Name className, ConstHandle item,
                      const ItemTimes& times)
{
    SequenceContext& sequence = track.sequence;
    const Ticks end = MultiplyTicks(times.end, sequence.rates.edges);
    if (const ConstHandle multiclip = item.GetChild("multiclip"))
        RemarkOnAngles(sequence.state, multiclip, LocationOf(track, item, times));
    sequence.end = std::max(sequence.end, end);
    Document& document = sequence.state.document;
    const Ticks start = MultiplyTicks(times.start, sequence.rates.edges);
    return document.NewObject(className, {{"MediaType", MediaTypeText(track.type)},
                                          {"TrackIndex", document.StoreNumber(track.index)},
                                          {"IsMuted", BoolText(!IsEnabled(item))},
                                          {"Start", document.StoreNumber(start)},
                                          {"End", document.StoreNumber(end)}});
}

ObjectHandle Skip(const TrackContext& track, ConstHandle item, const ItemTimes& times)
{
    AddSkipped(track.sequence.state, item, LocationOf(track, item, times));
    return {};
}

int ItemChannelType(const ImportOptions& options, ConstHandle item, int trackType)
{
    const std::string_view name = item.GetProperty("velaChannelType");
    for (const ChannelTypeRow& row : ChannelTypes())
        if (name == row.itemName)
            return row.type;
    return options.sn2vlMode ? trackType : kMonoType;
}

} // namespace

ObjectHandle TranslateVideoItem(const TrackContext& track, const ClipItem& item)
{
    const std::optional<ItemTiming> timing = TimingOf(track, item);
    if (!timing)
        return {};
    const ObjectHandle subClip = MakeVideoSubClip(track, item, *timing);
    if (!subClip)
        return Skip(track, item, timing->times);
    const ObjectHandle result = MakeItem(track, "VideoClipTrackItem", item, timing->times);
    result.SetProperty("FrameRect", track.sequence.frame.rect);
    result.SetProperty("PixelAspectRatio", track.sequence.frame.par);
    result.AddChild("SubClip", subClip);
    result.AddChild("Components", MakeItemVideoChain(track, item, timing->times, subClip));
    return result;
}

ObjectHandle TranslateAudioItem(const TrackContext& track, const ClipItem& item, int trackType)
{
    const std::optional<ItemTiming> timing = TimingOf(track, item);
    if (!timing)
        return {};
    const int type = ItemChannelType(track.sequence.state.options, item, trackType);
    const ObjectHandle subClip = MakeAudioSubClip(track, item, type, *timing);
    if (!subClip)
        return Skip(track, item, timing->times);
    const ObjectHandle result = MakeItem(track, "AudioClipTrackItem", item, timing->times);
    result.SetProperty("ID", NewGuidText());
    result.AddChild("SubClip", subClip);
    AddItemAudioEffects(track, item, timing->times, {.itemType = type, .trackType = trackType},
                        result);
    return result;
}

} // namespace XPJ

#include "import/track_items.h"

#include "core/numbers.h"
#include "import/effects.h"
#include "import/item_clips.h"
#include "import/masters.h"
#include "project/objects.h"
#include "xmeml/flags.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace XPJ {

namespace {

bool HasClip(const ShownMaster& shown, MediaType type)
{
    return type == MediaType::Video ? static_cast<bool>(shown.videoClip) : !shown.channels.empty();
}

// A time of an item, and what its element or a transition states of it.
struct NamedTime {
    Name key;
    const StatedTime& stated;
    Frames used = 0;
    Ticks unit = 0;
};

bool IsNumber(std::string_view text)
{
    return text.find_first_of("0123456789") != std::string_view::npos;
}

bool IsAsStated(ConstHandle element, const NamedTime& time)
{
    return IsNumber(element.GetProperty(time.key)) && time.stated.value == time.used &&
           MultiplyTicks(time.used, time.unit) < std::numeric_limits<Ticks>::max();
}

// Generators and what shows its media from the start need no points.
bool NeedsPoints(const ClipItem& item)
{
    const bool isFromStart = IsNumber(item.GetProperty("in")) && item.times.in.value == 0 &&
                             IsNumber(item.GetProperty("out")) && item.times.out.value == 0;
    return item.GetName() != "generatoritem" && !isFromStart;
}

// "start, end": the times that the item doesn't have as the document states them.
std::string AssumedTimes(const ItemContext& item)
{
    const StatedTimes& stated = item.element.times;
    const ItemTimes& times = item.times;
    const Ticks unit = item.track.sequence.rates.edges;
    const NamedTime all[] = {{"start", stated.start, times.start, unit},
                             {"end", stated.end, times.end, unit},
                             {"in", stated.in, times.in, item.rates.item},
                             {"out", stated.out, times.out, item.rates.item}};
    const std::size_t known = NeedsPoints(item.element) ? 4 : 2;
    std::string names;
    for (const NamedTime& time : std::span(all).first(known)) {
        const bool isBackwards = time.key == "out" && times.out <= times.in;
        if (isBackwards || !IsAsStated(item.element, time))
            names.append(names.empty() ? "" : ", ").append(time.key.View());
    }
    return names;
}

void RemarkOnTimes(const ItemContext& item)
{
    Account& account = item.track.sequence.state.account;
    if (const std::string assumed = AssumedTimes(item); !assumed.empty())
        AddRemark(account, RemarkKind::TimesAssumed, item.location, {.detail = assumed});
    if (item.times.end <= item.times.start)
        AddRemark(account, RemarkKind::EdgesInvalid, item.location);
}

// Nothing, with an issue, for an item that is not in the sequence, and for one that has no master
// with a clip of the track's type. Audio starts inside its source; the in point of a video is
// corrected later, with an issue.
std::optional<ItemContext> ContextOf(const TrackContext& track, const ClipItem& element)
{
    ImportState& state = track.sequence.state;
    const ItemRates rates = RatesOfItem(element, track.sequence.rates.edges);
    const FileElement file = FileOfItem(state.files, element);
    const ItemTimes times = element.GetName() == "generatoritem"
                                ? TimesOfGenerator(element, rates, Int64Property(file, "duration"))
                                : TimesOfClip(element, rates);
    const bool hasSource = track.type == MediaType::Video || times.out > times.in;
    if (times.start < 0 || times.end < 0 || !hasSource) {
        AddItemIssue(track, element, times.start, ImportIssue::InvalidStartEnd);
        return std::nullopt;
    }
    const ItemLocation location =
        LocationOfItem(track, element.GetProperty("name"), times.start, times.end);
    const ShownMaster& shown =
        state.masters.Shown(FindMaster(state, element, track.type, track.index));
    if (!HasClip(shown, track.type)) {
        AddSkipped(state, element, location);
        return std::nullopt;
    }
    if (state.sequences.ClosesCircle(element)) {
        AddRemark(state.account, RemarkKind::SequenceInItself, location,
                  {.name = shown.master.Sequence().GetProperty("Name")});
        if (state.options.settings.openInterchange)
            return std::nullopt;
    }
    const ItemContext context{.track = track,
                              .element = element,
                              .shown = shown,
                              .file = file,
                              .rates = rates,
                              .times = times,
                              .speed = SpeedOfItem(element),
                              .location = location};
    RemarkOnTimes(context);
    return context;
}

// The values that items of both types begin with.
ObjectHandle MakeItem(const ItemContext& item, Name className)
{
    const TrackContext& track = item.track;
    SequenceContext& sequence = track.sequence;
    if (const ConstHandle multiclip = item.element.GetChild("multiclip"))
        RemarkOnAngles(sequence.state, multiclip, item.location);
    const Ticks start = MultiplyTicks(item.times.start, sequence.rates.edges);
    const Ticks end = MultiplyTicks(item.times.end, sequence.rates.edges);
    sequence.end = std::max(sequence.end, end);
    Document& document = sequence.state.document;
    return document.NewObject(className, {{"MediaType", MediaTypeText(track.type)},
                                          {"TrackIndex", document.StoreNumber(track.index)},
                                          {"IsMuted", BoolText(!IsEnabled(item.element))},
                                          {"Start", document.StoreNumber(start)},
                                          {"End", document.StoreNumber(end)}});
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

ObjectHandle TranslateVideoItem(const TrackContext& track, const ClipItem& element)
{
    const std::optional<ItemContext> item = ContextOf(track, element);
    if (!item)
        return {};
    const ObjectHandle subClip = MakeVideoSubClip(*item);
    const ObjectHandle result = MakeItem(*item, "VideoClipTrackItem");
    result.SetProperty("FrameRect", track.sequence.frame.rect);
    result.SetProperty("PixelAspectRatio", track.sequence.frame.par);
    result.AddChild("SubClip", subClip);
    result.AddChild("Components", MakeItemVideoChain(*item, subClip));
    return result;
}

ObjectHandle TranslateAudioItem(const TrackContext& track, const ClipItem& element, int trackType)
{
    const std::optional<ItemContext> item = ContextOf(track, element);
    if (!item)
        return {};
    const int type = ItemChannelType(track.sequence.state.options, element, trackType);
    const ObjectHandle subClip = MakeAudioSubClip(*item, type);
    const ObjectHandle result = MakeItem(*item, "AudioClipTrackItem");
    result.SetProperty("ID", NewGuidText());
    result.AddChild("SubClip", subClip);
    AddItemAudioEffects(*item, {.itemType = type, .trackType = trackType}, result);
    return result;
}

} // namespace XPJ

#include "import/track_items.h"

#include "core/numbers.h"
#include "core/text.h"
#include "import/item_clips.h"
#include "import/item_effects.h"
#include "import/item_issues.h"
#include "import/item_audio.h"
#include "xmeml/files.h"
#include "project/synthetic_items.h"
#include "platform/platform.h"

#include <algorithm>

namespace XPJ {

namespace {

ItemTimes TimesOf(const TrackContext& context, ObjectHandle item, const ItemRates& rates)
{
    if (item.GetName() != "generatoritem")
        return TimesOfClip(item, rates);
    const ObjectHandle file = FileOfItem(context.sequence.state, item);
    return TimesOfGenerator(item, rates, Int64Property(file, "duration"));
}

// The values that items of both kinds begin with.
ObjectHandle MakeItem(const TrackContext& context, Name className, ObjectHandle item,
                      const ItemTimes& times)
{
    const Ticks unit = context.sequence.rates.edges;
    const Ticks end = MultiplyTicks(times.end, unit);
    const ObjectHandle result = context.sequence.state.document.NewObject(className);
    result.SetPropertyShared("MediaType", MediaTypeText(context.type));
    result.SetProperty("TrackIndex", IntToString(context.index));
    result.SetPropertyShared(
        "IsMuted", EqualsIgnoreCase(item.GetProperty("enabled"), "FALSE") ? "true" : "false");
    result.SetProperty("Start", TickText(MultiplyTicks(times.start, unit)));
    result.SetProperty("End", TickText(end));
    context.sequence.end = std::max(context.sequence.end, end);
    return result;
}

// Sound starts inside its source; a picture's in point is put right later, with a finding.
bool HasPlace(const TrackContext& context, const ItemTimes& times)
{
    if (times.start < 0 || times.end < 0)
        return false;
    return context.type == MediaType::Video || times.out > times.in;
}

ObjectHandle Skip(const TrackContext& context, ObjectHandle item, Frames start)
{
    AddSkipped(context.sequence.state,
               PlaceOfItem(context.sequence.clock, item, context.type, context.index, start));
    return {};
}

struct ChannelTypeName {
    std::string_view name;
    int type;
};

constexpr ChannelTypeName kChannelTypeNames[] = {
    {"mono", kMonoType},
    {"stereo", kStereoType},
    {"5.1", kSurroundType},
    {"adaptive", kAdaptiveType},
};

int ItemChannelType(const ImportState& state, ObjectHandle item, int trackType)
{
    for (const ChannelTypeName& row : kChannelTypeNames)
        if (item.GetProperty("velaChannelType") == row.name)
            return row.type;
    return state.sn2vlMode ? trackType : kMonoType;
}

} // namespace

void AddItemIssue(const TrackContext& context, ObjectHandle item, Frames start, ImportIssue kind)
{
    AddItemIssue(context.sequence.state,
                 PlaceOfItem(context.sequence.clock, item, context.type, context.index, start),
                 kind);
}

ObjectHandle TranslateVideoItem(const TrackContext& context, ObjectHandle item)
{
    const ItemRates rates = RatesOfItem(item, context.sequence.rates.edges);
    const ItemTimes times = TimesOf(context, item, rates);
    if (!HasPlace(context, times)) {
        AddItemIssue(context, item, times.start, ImportIssue::InvalidStartEnd);
        return {};
    }
    const ObjectHandle subClip = MakeVideoSubClip(context, item, times, rates);
    if (!subClip)
        return Skip(context, item, times.start);
    const ObjectHandle result = MakeItem(context, "VideoClipTrackItem", item, times);
    result.SetProperty("FrameRect", context.sequence.frameRect);
    result.SetProperty("PixelAspectRatio", context.sequence.aspect);
    result.AddChild("SubClip", subClip);
    result.AddChild("Components", MakeItemVideoChain(context, item, times.start, subClip));
    return result;
}

ObjectHandle TranslateAudioItem(const TrackContext& context, ObjectHandle item, int trackType)
{
    const ItemRates rates = RatesOfItem(item, context.sequence.rates.edges);
    const ItemTimes times = TimesOf(context, item, rates);
    if (!HasPlace(context, times)) {
        AddItemIssue(context, item, times.start, ImportIssue::InvalidStartEnd);
        return {};
    }
    const int channelType = ItemChannelType(context.sequence.state, item, trackType);
    const ObjectHandle subClip = MakeAudioSubClip(context, item, channelType, times, rates);
    if (!subClip)
        return Skip(context, item, times.start);
    const ObjectHandle result = MakeItem(context, "AudioClipTrackItem", item, times);
    result.SetProperty("ID", NewGuidText());
    result.AddChild("SubClip", subClip);
    AddItemSound(context, item, times.start, channelType, trackType, result);
    return result;
}

} // namespace XPJ

#include "export/audio_items.h"

#include "core/numbers.h"
#include "effects/audio_filters.h"
#include "effects/audio_pan.h"
#include "export/channel_layout.h"
#include "export/effects.h"
#include "export/item_effects.h"
#include "export/items.h"
#include "export/links.h"
#include "export/master_audio.h"
#include "export/output_channels.h"
#include "export/transitions.h"

#include <algorithm>

namespace XPJ::RVX {

namespace {

int ContentCount(ObjectHandle clip)
{
    constexpr int kMost = 1024; // far more than a damaged project may mean
    int count = 0;
    for ([[maybe_unused]] const ObjectHandle content : SecondaryContentsOf(clip))
        if (++count == kMost)
            break;
    return count;
}

bool IsUsed(ObjectHandle content)
{
    return !IsNoIndex(content.GetProperty("ChannelIndex"));
}

// What the item plays on a channel of its track; null for nothing.
ObjectHandle ContentOf(ObjectHandle clip, int channel)
{
    for (const ObjectHandle content : SecondaryContentsOf(clip))
        if (channel-- == 0)
            return IsUsed(content) ? content : ObjectHandle();
    return {};
}

std::string_view ChannelTypeName(int contents)
{
    if (contents < 2)
        return "mono";
    return contents == 2 ? "stereo" : "adaptive";
}

MasterSound ReadMasterSound(ObjectHandle masterClip)
{
    MasterSound sound;
    ObjectHandle first;
    for (const ObjectHandle clip : ClipsOfMaster(masterClip)) {
        if (!IsAudioClip(clip))
            continue;
        ++sound.clips;
        const ObjectHandle medium = MediaOfSource(SourceOfClip(clip));
        if (!medium)
            continue;
        const std::int64_t stream = Int64Property(medium, "StreamNumber");
        sound.firstStream = first ? std::min(sound.firstStream, stream) : stream;
        sound.hasStreams = sound.hasStreams || (first && first != medium);
        if (!first)
            first = medium;
    }
    return sound;
}

const MasterSound& MasterSoundOf(ExportContext& context, ObjectHandle masterClip)
{
    const auto found = context.masterSounds.find(masterClip.UniqueId());
    if (found != context.masterSounds.end())
        return found->second;
    return context.masterSounds.emplace(masterClip.UniqueId(), ReadMasterSound(masterClip))
        .first->second;
}

// From 1. Streams of discrete files are counted from 1 already.
std::int64_t SourceTrack(ExportContext& context, const ItemRecord& record, int channel)
{
    if (context.vl2snMode)
        return channel + 1;
    const ObjectHandle content = ContentOf(record.clip, channel);
    if (!content)
        return record.medium ? AddTicks(Int64Property(record.clip, "SecondaryIndex"), 1)
                             : channel + 1;
    if (!record.medium) // a sequence, of whose outputs the item may play any
        return AddTicks(Int64Property(content, "ChannelIndex"), 1);
    const MasterSound& sound = MasterSoundOf(context, record.masterClip);
    if (sound.clips < 2)
        return AddTicks(Int64Property(content, "ChannelIndex"), 1);
    if (!sound.hasStreams)
        return AddTicks(Int64Property(record.clip, "SecondaryIndex"), 1);
    const ObjectHandle medium = MediaOfSource(SourceOfContent(content));
    return AddTicks(Int64Property(medium, "StreamNumber"), sound.firstStream == 1 ? 0 : 1);
}

// The channels of an item find each other by their group, also without a link in the project.
void RegisterChannel(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                     bool grouped, ObjectHandle element)
{
    const ObjectHandle core = ItemCore(record.item);
    if (!HasLinkGroup(context, core))
        OpenLinkGroup(context, core);
    RegisterLink(context, core, element, track, grouped);
}

EffectContext EffectsOf(ExportContext& context, const TrackPlace& track, const ItemRecord& record)
{
    return EffectContextOf(context, track, Int64Property(ItemEdges(record.item), "Start"),
                           record.subClip.GetProperty("Name"),
                           context.inTicks ? 1 : record.timing.rate);
}

void TranslateClipItem(ExportContext& context, TrackPlace& track, ItemRecord& record,
                       const ItemChannel& channel)
{
    const int contents = ContentCount(record.clip);
    const EffectContext effects = EffectsOf(context, track, record);
    const ObjectHandle element = context.document.NewObject("clipitem");
    element.SetPropertyShared("velaChannelType", ChannelTypeName(contents));
    if (context.vl2snMode)
        element.SetProperty("channelcount", IntToString(contents));
    WriteItemHead(context, record, element);
    RegisterChannel(context, track, record, contents == 2 && channel.isExploded, element);
    GainToXmeml(effects, record.clip, MediumKindOf(record.medium) == MediumKind::BarsAndTone,
                element);
    ReadClipOptions(context, record, element);
    WriteItemSource(context, track, record, element);
    WriteSourceTrack(context, SourceTrack(context, record, channel.channel), element);
    ApplySubclipOffsets(context, record.boundaries, element);
    AudioChainToXmeml(effects, ChainOfOwner(ItemCore(record.item)), element);
    PanToXmeml(effects, PanProcessorOf(record.item), element);
    WriteRange(context, record.clip, 1.0, record.timing, element);
    WriteDuration(context, record.clip, record.timing, element);
    if (record.timing.speed != 1.0 || record.timing.reverse)
        ExportSpeed(context, track, record, element);
    track.Add(element);
}

} // namespace

std::uint32_t UsedChannels(ObjectHandle item)
{
    std::uint32_t used = 0;
    int channel = 0;
    for (const ObjectHandle content : SecondaryContentsOf(ClipOfSubClip(SubClipOf(item)))) {
        if (channel == kMaxChannels)
            break;
        if (IsUsed(content))
            used |= 1U << channel;
        ++channel;
    }
    return channel == 0 ? 1U : used;
}

void TranslateAudioItem(ExportContext& context, TrackPlace& track, ObjectHandle item,
                        const ItemChannel& channel)
{
    ItemRecord record = RecordOf(context, item, track);
    if (!record.subClip)
        return;
    TranslateHeadTransition(context, track, item);
    TranslateClipItem(context, track, record, channel);
    TranslateTailTransition(context, track, item);
}

} // namespace XPJ::RVX

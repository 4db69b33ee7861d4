#include "export/audio_items.h"

#include "core/channel_types.h"
#include "core/numbers.h"
#include "effects/audio_chain.h"
#include "effects/audio_pan.h"
#include "effects/time_remap.h"
#include "export/audio_channels.h"
#include "export/clip_media.h"
#include "export/effects.h"
#include "export/items.h"

namespace XPJ::RVX {

namespace {

// `velaChannelType` of a clip with so many channels.
std::string_view ChannelTypeName(int contents)
{
    const ChannelType type = contents < 2 ? kMonoType : contents == 2 ? kStereoType : kAdaptiveType;
    return ChannelTypeOf(type).itemName;
}

// From 1. Streams of discrete files are counted from 1 already.
std::int64_t SourceTrack(const ExportContext& context, MasterCatalog& masters,
                         const ItemRecord& record, int channel)
{
    if (context.IsHandOff())
        return channel + 1;
    const ConstHandle content = ContentOf(record.shownClip, channel);
    if (!content)
        return record.media ? AddTicks(Int64Property(record.shownClip, "SecondaryIndex"), 1)
                            : channel + 1;
    if (!record.media) // a sequence, of whose outputs the item may play any
        return AddTicks(Int64Property(content, "ChannelIndex"), 1);
    const MasterAudio& audio = masters.AudioOf(record.masterClip);
    if (audio.clips < 2)
        return AddTicks(Int64Property(content, "ChannelIndex"), 1);
    if (!audio.hasStreams)
        return AddTicks(Int64Property(record.shownClip, "SecondaryIndex"), 1);
    const Media media = MediaOfSource(SourceOfContent(content));
    return AddTicks(Int64Property(media, "StreamNumber"), audio.firstStream == 1 ? 0 : 1);
}

// A clip whose gain changes its level has a Gain filter, which states the gain in decibels.
bool HasGain(ConstHandle clip)
{
    return clip.HasProperty("Gain") && DoubleProperty(clip, "Gain") != 1.0;
}

// The channels of an item find each other by their group, also without a link in the project. To
// the letter the first channel opens it: an item that doesn't play that one has no links.
void OpenGroup(const ExportContext& context, const ItemPart& part, LinkGroups& links)
{
    const bool isFirst = part.channel == 0 || !part.isExploded;
    if ((isFirst || context.options.settings.openInterchange) && !links.Contains(part.item))
        links.AddGroupOf(part.item);
}

EffectContext EffectsOf(ExportContext& context, const TrackContext& track, const ItemRecord& record)
{
    EffectContext effects =
        EffectContextOf(context, track, record.item, record.subClip.GetProperty("Name"),
                        record.timing.unit == TimeUnit::Ticks ? 1 : record.timing.rate);
    effects.isRepeated = record.isRepeated;
    return effects;
}

NestedSequence TranslateClipItem(ExportContext& context, Catalogs& catalogs, TrackContext& track,
                                 ItemRecord& record, const ItemPart& part)
{
    const int contents = ContentCount(record.clip);
    const EffectContext effects = EffectsOf(context, track, record);
    const ObjectHandle element = context.document.NewObject("clipitem");
    element.SetPropertyShared("velaChannelType", ChannelTypeName(contents));
    if (context.IsHandOff())
        element.SetProperty("channelcount", IntToString(contents));
    WriteItemHead(context, catalogs.masters, record, element);
    GainToXmeml(effects, record.clip, MediaKindOf(record.media) == MediaKind::BarsAndTone, element);
    if (context.options.settings.openInterchange && HasGain(record.clip))
        element.SetPropertyShared("velaGain", record.clip.GetProperty("Gain"));
    WriteClipOptions(context, record, element);
    const ItemSource source = WriteItemSource(context, catalogs, track, record, element);
    OpenGroup(context, part, catalogs.links);
    catalogs.links.Add(context.document, {record.item, record.location},
                       {.element = element,
                        .id = record.id,
                        .type = MediaType::Audio,
                        .track = track.number,
                        .position = track.NextPosition(),
                        .isGrouped = contents == 2 && part.isExploded},
                       source.linkKey);
    WriteSourceTrack(context.document, SourceTrack(context, catalogs.masters, record, part.channel),
                     element);
    WriteSubclipOffsets(context.document, record.boundaries, record.timing.rate, element);
    AudioChainToXmeml(effects, ChainOfOwner(record.item), element);
    PanToXmeml(effects, PannerOf(record.item), element);
    WriteRange(record.clip, MediaType::Audio, record.timing, element);
    WriteDuration(record.clip, record.timing, element);
    if (record.timing.speed != 1.0 || record.timing.reverse)
        TimeRemapToXmeml(context.document, PlayedSpeedOf(record.timing), {}, MediaType::Audio,
                         element);
    if (!SpeedKeyframesOf(record.clip).empty())
        AddRemark(context, record, RemarkKind::SpeedCurveOfAudio);
    ReportItem(context, track, record);
    track.Add(element);
    return source.nested;
}

} // namespace

NestedSequence TranslateAudioItem(ExportContext& context, Catalogs& catalogs, TrackContext& track,
                                  const ItemPart& part)
{
    ItemRecord record = ReadItem(context, catalogs, track, part.item);
    if (!record.subClip) {
        AddRemark(context, record, RemarkKind::ClipWithoutMedia);
        return {};
    }
    TranslateHeadTransition(context, track, record);
    const NestedSequence nested = TranslateClipItem(context, catalogs, track, record, part);
    TranslateTailTransition(context, track, part.item);
    return nested;
}

} // namespace XPJ::RVX

#include "export/item_effects.h"

#include "effects/distort.h"
#include "effects/time_remap.h"
#include "effects/video_chain.h"
#include "export/effects.h"
#include "export/picture_format.h"

#include <optional>
#include <string_view>

namespace XPJ::RVX {

namespace {

FrameSize FrameOfSequence(ExportContext& context, ObjectHandle sequence)
{
    const auto [entry, isNew] = context.sequenceFrames.try_emplace(sequence.UniqueId());
    if (isNew) {
        const ObjectHandle group = GroupOfKind(sequence, MediaType::Video);
        entry->second =
            ParseFrameSize(group.GetProperty("FrameRect"), group.GetProperty("PixelAspectRatio"));
    }
    return entry->second;
}

// The frame of what an item shows; nothing for an item without a picture.
std::optional<FrameSize> FrameOfItem(ExportContext& context, const ItemRecord& record)
{
    if (const ObjectHandle stream = VideoStreamOf(record.medium))
        return ParseFrameSize(stream.GetProperty("FrameRect"), PixelAspectOf(stream));
    if (record.sequence)
        return FrameOfSequence(context, record.sequence);
    return std::nullopt;
}

} // namespace

void ExportVideoEffects(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                        ObjectHandle element)
{
    const Ticks start = Int64Property(ItemEdges(record.item), "Start");
    EffectContext effects = EffectContextOf(context, track, start,
                                            record.subClip.GetProperty("Name"), record.timing.rate);
    effects.sequenceFrame = FrameOfSequence(context, track.sequence.sequence);
    effects.clipFrame = FrameOfItem(context, record).value_or(FrameSize());
    VideoChainToXmeml(effects, ChainOfOwner(ItemCore(record.item)), element);
}

void ExportSpeed(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                 ObjectHandle element)
{
    const ItemTiming& timing = record.timing;
    const bool isVideo = track.kind == MediaType::Video;
    TimeRemapToXmeml(context.document,
                     {.frameTicks = timing.rate,
                      .factor = timing.speed,
                      .reverse = timing.reverse,
                      .frameBlend = timing.frameBlend,
                      .originalDuration = timing.originalDuration,
                      .duration = timing.duration,
                      .ratio = timing.ratio},
                     isVideo ? SpeedKeyframesOf(record.clip) : std::string_view(), track.kind,
                     element);
}

void ExportAspectCompensation(ExportContext& context, const TrackPlace& track,
                              const ItemRecord& record, ObjectHandle element)
{
    if (const std::optional<FrameSize> frame = FrameOfItem(context, record))
        CompensatePixelAspect(context.document, frame->pixelAspect,
                              FrameOfSequence(context, track.sequence.sequence).pixelAspect,
                              element);
}

} // namespace XPJ::RVX

#include "export/video_items.h"

#include "effects/distort.h"
#include "effects/motion_to_xmeml.h"
#include "effects/opacity_to_xmeml.h"
#include "export/formats.h"
#include "export/time_remap.h"
#include "export/video_effects.h"

#include <optional>
#include <string_view>

namespace XPJ::RVX {

namespace {

FrameSize FrameOfSequence(ExportContext& context, ConstHandle sequence)
{
    const auto [entry, isNew] = context.sequenceFrames.try_emplace(sequence.UniqueId());
    if (isNew) {
        const ConstHandle group = GroupOfKind(sequence, MediaType::Video);
        entry->second =
            ParseFrameSize(group.GetProperty("FrameRect"), group.GetProperty("PixelAspectRatio"));
    }
    return entry->second;
}

// The frame of what an item shows; nothing for an item without a picture.
std::optional<FrameSize> FrameOfItem(ExportContext& context, const ItemRecord& record)
{
    if (const ConstHandle stream = VideoStreamOf(record.medium))
        return ParseFrameSize(stream.GetProperty("FrameRect"), PixelAspectOf(stream));
    if (record.sequence)
        return FrameOfSequence(context, record.sequence);
    return std::nullopt;
}

double Factor(int sequence, int clip)
{
    return sequence > 0 && clip > 0 ? static_cast<double>(sequence) / clip : 1.0;
}

FrameFactors FactorsOf(const FrameSize& sequence, const FrameSize& clip)
{
    return {Factor(sequence.width, clip.width), Factor(sequence.height, clip.height)};
}

// The first component of a match name.
ConstHandle FindComponent(ConstHandle chain, std::string_view matchName)
{
    for (const ConstHandle component : ComponentsOf(chain))
        if (ComponentMatchName(component) == matchName)
            return component;
    return {};
}

EffectOwner OwnerOf(const TrackPlace& track, const ItemRecord& record)
{
    return {.track = &track,
            .start = Int64Property(ItemEdges(record.item), "Start"),
            .clipName = record.subClip.GetProperty("Name")};
}

void ExportCompositeMode(ExportContext& context, const EffectOwner& owner,
                         const EffectSource& opacity, ObjectHandle element)
{
    const std::optional<std::string_view> mode = CompositeModeOf(opacity);
    if (!mode)
        return;
    element.SetPropertyShared("compositemode", *mode);
    if (mode->empty())
        AddItemIssue(context, *owner.track, owner.start, ExportIssue::CompositeModeNotSupported,
                     owner.clipName);
}

} // namespace

void ExportVideoEffects(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                        ObjectHandle element)
{
    const ConstHandle chain = ChainOfOwner(ItemCore(record.item));
    const EffectOwner owner = OwnerOf(track, record);
    const Ticks frameTicks = record.timing.rate;
    if (const ConstHandle motion = FindComponent(chain, kMotionMatch))
        ExportMotion({context.document, motion, frameTicks},
                     FactorsOf(FrameOfSequence(context, track.sequence.sequence),
                               FrameOfItem(context, record).value_or(FrameSize())),
                     element);
    if (const ConstHandle component = FindComponent(chain, kOpacityMatch)) {
        const EffectSource opacity{context.document, component, frameTicks};
        ExportOpacity(opacity, element);
        ExportCompositeMode(context, owner, opacity, element);
    }
    TranslateVideoComponents(context, owner, chain, frameTicks, element);
}

void ExportSpeed(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                 ObjectHandle element)
{
    const bool isVideo = track.kind == MediaType::Video;
    ExportTimeRemap(context.document, record.timing,
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

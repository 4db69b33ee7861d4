#include "export/video_items.h"

#include "core/numbers.h"
#include "effects/color_matte.h"
#include "effects/distort.h"
#include "effects/time_remap.h"
#include "effects/video_chain.h"
#include "export/effects.h"
#include "export/formats.h"
#include "export/items.h"
#include "project/labels.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ::RVX {

namespace {

// The frame of what an item shows; nothing for an item without video.
std::optional<FrameSize> FrameOfItem(SequenceCatalog& sequences, const ItemRecord& record)
{
    if (const ConstHandle stream = VideoStreamOf(record.media))
        return ParseFrameSize(stream.GetProperty("FrameRect"), PixelAspectOf(stream));
    if (record.sequence)
        return sequences.FrameOf(record.sequence);
    return std::nullopt;
}

// An item of a video track that is being written.
struct VideoItem {
    ExportContext& context;
    Catalogs& catalogs;
    TrackContext& track;
    ItemRecord record;
    ObjectHandle element;

    NestedSequence TranslateClip();
    void TranslateMatte();
    void ReportMatte(); // what it has beyond its color
    void TranslateGenerator();
    void AddLink(std::string_view source);
    void WriteTimes();
    void WriteEffects();
    void ReportScaleToFrame(const EffectContext& effects);
    void WriteFrameHold();
    void WriteSpeed();
    void WriteAspectCompensation();
};

void VideoItem::AddLink(std::string_view source)
{
    catalogs.links.Add(context.document, {record.item, record.location},
                       {.element = element,
                        .id = record.id,
                        .type = MediaType::Video,
                        .track = track.number,
                        .position = track.NextPosition()},
                       source);
}

void VideoItem::WriteTimes()
{
    WriteRange(record.clip, MediaType::Video, record.timing, element);
    WriteDuration(record.clip, record.timing, element);
}

// The frame of its source that a clip holds, in the item's frames.
void VideoItem::WriteFrameHold()
{
    if (IntProperty(record.clip, "FrameHold") == 0)
        return;
    const Ticks stated = Int64Property(record.clip, "FrameHoldStart");
    const Ticks held = stated < 0 ? Int64Property(record.clip, "InPoint") : stated;
    if (!context.options.settings.openInterchange || record.timing.rate == 0)
        return AddRemark(context, record, RemarkKind::FrameHold);
    element.SetPropertyShared("stillframe", "TRUE");
    element.SetProperty(
        "stillframeoffset",
        IntToString(NearestFrame(AddTicks(held, record.timing.sourceOffset), record.timing.rate)));
}

// Motion, opacity and the other effects, in the order of the document.
void VideoItem::WriteEffects()
{
    EffectContext effects = EffectContextOf(context, track, record.item,
                                            record.subClip.GetProperty("Name"), record.timing.rate);
    effects.isRepeated = record.isRepeated;
    effects.sequenceFrame = catalogs.sequences.FrameOf(track.sequence.sequence);
    if (FitsAnyFrame(context, record.media))
        effects.clipFrame = effects.sequenceFrame;
    else
        effects.clipFrame = FrameOfItem(catalogs.sequences, record).value_or(FrameSize());
    VideoChainToXmeml(effects, ChainOfOwner(record.item), element);
    ReportScaleToFrame(effects);
}

// Only this system knows the mode; to others the clip is as large as its media.
void VideoItem::ReportScaleToFrame(const EffectContext& effects)
{
    const FrameSize& clip = effects.clipFrame;
    const FrameSize& frame = effects.sequenceFrame;
    if (!IsTrue(record.clip, "ScaleToFrameSize") || clip.width <= 0 || clip.height <= 0)
        return;
    const double scale = std::min(frame.width * frame.pixelAspect / (clip.width * clip.pixelAspect),
                                  static_cast<double>(frame.height) / clip.height);
    if (const std::string percent = fmt::format("{:.1f}", 100 * scale); percent != "100.0")
        AddRemark(context, record, RemarkKind::ScaledToFrame, {.detail = percent});
}

constexpr int kOpticalFlow = 2; // `TimeInterpolationType`; 1 is frame blending

// The Time Remap of an item that does not play its source at normal speed.
void VideoItem::WriteSpeed()
{
    const ItemTiming& timing = record.timing;
    if (HasTimeRemapping(record.clip) || timing.ratio != 1.0 || timing.reverse || timing.frameBlend)
        TimeRemapToXmeml(context.document, PlayedSpeedOf(timing), SpeedKeyframesOf(record.clip),
                         MediaType::Video, element);
    if (HasSpeedCurves(SpeedKeyframesOf(record.clip)))
        AddRemark(context, record, RemarkKind::KeyframeInterpolation,
                  {.name = kTimeRemap.xmeml.name});
    if (timing.frameBlend && IntProperty(record.clip, "TimeInterpolationType") >= kOpticalFlow)
        AddRemark(context, record, RemarkKind::OpticalFlow);
}

// The stretch between the pixel aspects of an item and its sequence.
void VideoItem::WriteAspectCompensation()
{
    if (const std::optional<FrameSize> frame = FrameOfItem(catalogs.sequences, record))
        CompensatePixelAspect(context.document, frame->pixelAspect,
                              catalogs.sequences.FrameOf(track.sequence.sequence).pixelAspect,
                              element);
}

NestedSequence VideoItem::TranslateClip()
{
    element = context.document.NewObject("clipitem");
    WriteItemHead(context, catalogs.masters, record, element);
    const ItemSource source = WriteItemSource(context, catalogs, track, record, element);
    AddLink(source.linkKey);
    WriteAlpha(VideoStreamOf(record.media), element);
    WriteSubclipOffsets(context.document, record.boundaries, record.timing.rate, element);
    WriteClipOptions(context, record, element);
    WriteTimes();
    WriteFrameHold();
    WriteEffects();
    WriteSpeed();
    WriteAspectCompensation();
    ReportItem(context, track, record);
    track.Add(element);
    return source.nested;
}

// A generator is described by its one effect: it has neither filters nor markers nor comments.
void VideoItem::TranslateMatte()
{
    element = context.document.NewObject("generatoritem");
    WriteItemHead(context, catalogs.masters, record, element);
    AddLink(record.masterClipId);
    element.AddChild(ColorMatteEffect(context.document, record.media));
    ReadSpeed(record.clip, record.shownClip, record.timing);
    WriteTimes();
    ReportMatte();
    track.Add(element);
}

void VideoItem::ReportMatte()
{
    ReportItem(context, track, record);
    ReportVideoEffects(context, RemarkKind::GeneratorEffect, record.location,
                       ChainOfOwner(record.item));
    const std::string_view label = LabelOf(record.clip, kClipLabel);
    if (!label.empty())
        AddRemark(context, record, RemarkKind::LabelLost, {.name = label});
    for ([[maybe_unused]] const ConstHandle marker : MarkersOf(record.clip))
        AddRemark(context, record, RemarkKind::MarkerLost, {.detail = "Comment"});
}

// A generator as other programs have it, with all that the item states. The effects of its master
// are those of the clip in the bin, where there is one.
void VideoItem::TranslateGenerator()
{
    const ConstHandle chain = ChainOfOwner(record.item);
    element = context.document.NewObject("generatoritem");
    WriteItemHead(context, catalogs.masters, record, element);
    AddLink(record.masterClipId);
    const bool isScaled = IsTrue(record.clip, "ScaleToFrameSize");
    const FrameSize frame = catalogs.sequences.FrameOf(track.sequence.sequence);
    element.AddChild(
        catalogs.generators.EffectOf(context, {record.media, record.masterClip, chain,
                                               &record.location, isScaled ? FrameSize() : frame}));
    WriteClipOptions(context, record, element);
    WriteTimes();
    WriteEffects();
    const bool hasBins = context.options.sequenceGuid == kZeroGuid;
    if (!hasBins || !catalogs.masters.BrowserItemOf(record.masterClip))
        TranslateMasterEffects(
            context,
            {record.masterClip, catalogs.masters.LocationOf(record.masterClip), record.timing.rate},
            element);
    WriteSpeed();
    ReportItem(context, track, record);
    track.Add(element);
}

} // namespace

NestedSequence TranslateVideoItem(ExportContext& context, Catalogs& catalogs, TrackContext& track,
                                  TrackItem item)
{
    VideoItem clip{context, catalogs, track, ReadItem(context, catalogs, track, item), {}};
    if (!clip.record.subClip || ShowsCaptions(clip.record.media)) {
        AddRemark(context, clip.record,
                  clip.record.subClip ? RemarkKind::CaptionUnsupported
                                      : RemarkKind::ClipWithoutMedia);
        return {};
    }
    TranslateHeadTransition(context, track, clip.record);
    NestedSequence nested;
    if (IsWrittenAsGenerator(context, clip.record.media))
        clip.TranslateGenerator();
    else if (MediaKindOf(clip.record.media) == MediaKind::ColorMatte)
        clip.TranslateMatte();
    else
        nested = clip.TranslateClip();
    TranslateTailTransition(context, track, item);
    return nested;
}

} // namespace XPJ::RVX

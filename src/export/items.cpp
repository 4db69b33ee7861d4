#include "export/items.h"

#include "core/text.h"
#include "effects/color_matte.h"
#include "export/clip_notes.h"
#include "export/files.h"
#include "export/formats.h"
#include "export/links.h"
#include "export/logging.h"
#include "export/markers.h"
#include "export/rates.h"
#include "export/sequences.h"
#include "export/transitions.h"
#include "export/video_items.h"

namespace XPJ::RVX {

namespace {

bool ShowsCaptions(const ItemRecord& record)
{
    return VideoStreamOf(record.medium).GetName() == "CaptioningStream";
}

// A still counts in the frames of the sequence.
Ticks RateOfItem(ConstHandle medium, const TrackPlace& track)
{
    const ConstHandle stream = VideoStreamOf(medium);
    const Ticks rate = Int64Property(stream, "FrameRate");
    return IsRate(rate) && !IsTrue(stream, "IsStill") ? rate : track.sequence.frameTicks;
}

// Files keep the form of the document, also below picture items.
void WriteFile(ExportContext& context, const ItemRecord& record, ObjectHandle element)
{
    const TimeFormScope form(context, context.vl2snMode);
    const ObjectHandle file = FileFor(context, element, record.medium, record.masterClip);
    TranslateLoggingInfo(context, record.masterClip, file, element);
    const ConstHandle projectItem = FindNote(context.projectItems, record.masterClip);
    if (!projectItem)
        return;
    if (MediumKindOf(record.medium) == MediumKind::Graphic)
        file.SetPropertyShared("mediaSource", "GraphicAndTypeMaster");
    WriteComments(context, ItemProperties(projectItem), element);
}

bool ChangesSpeed(const ItemRecord& record)
{
    const ItemTiming& timing = record.timing;
    return HasTimeRemapping(record.clip) || timing.ratio != 1.0 || timing.reverse ||
           timing.frameBlend;
}

void TranslateClipItem(ExportContext& context, TrackPlace& track, ItemRecord& record)
{
    const ObjectHandle element = context.document.NewObject("clipitem");
    WriteItemHead(context, record, element);
    RegisterLink(context, ItemCore(record.item), element, track);
    WriteItemSource(context, track, record, element);
    WriteAlpha(VideoStreamOf(record.medium), element);
    ApplySubclipOffsets(context, record.boundaries, element);
    ReadClipOptions(context, record, element);
    WriteRange(context, record.clip, record.timing.speed, record.timing, element);
    WriteDuration(context, record.clip, record.timing, element);
    ExportVideoEffects(context, track, record, element);
    if (ChangesSpeed(record))
        ExportSpeed(context, track, record, element);
    ExportAspectCompensation(context, track, record, element);
    track.Add(element);
}

// A generator is told by its one effect: it has no place for filters, markers or notes.
void TranslateMatte(ExportContext& context, TrackPlace& track, ItemRecord& record)
{
    const ObjectHandle element = context.document.NewObject("generatoritem");
    WriteItemHead(context, record, element);
    RegisterLink(context, ItemCore(record.item), element, track);
    element.AddChild(ColorMatteEffect(context.document, record.medium));
    ReadSpeed(context, record.clip, record.timing);
    WriteRange(context, record.clip, record.timing.speed, record.timing, element);
    WriteDuration(context, record.clip, record.timing, element);
    track.Add(element);
}

} // namespace

ItemRecord RecordOf(ExportContext& context, ConstHandle item, const TrackPlace& track)
{
    const ConstHandle subClip = SubClipOf(item);
    const ConstHandle masterClip = MasterOfSubClip(subClip);
    const MasterMedia& source = MediaOfMaster(context, masterClip);
    ItemRecord record{.item = item,
                      .subClip = subClip,
                      .clip = ClipOfSubClip(subClip),
                      .masterClip = masterClip,
                      .medium = source.medium,
                      .sequence = source.sequence,
                      .boundaries = source.boundaries,
                      .timing = {}};
    record.timing.rate = RateOfItem(source.medium, track);
    record.timing.sequenceRate = track.sequence.frameTicks;
    record.timing.infinite = IsTrue(source.medium, "Infinite");
    record.boundaries.ticksPerFrame = record.timing.rate;
    return record;
}

void WriteItemHead(ExportContext& context, ItemRecord& record, ObjectHandle element)
{
    element.SetPropertyShared("id", NewId(context, "clipitem-", context.ids.clipItem));
    element.SetPropertyShared("enabled",
                              IsTrue(ItemCore(record.item), "IsMuted") ? "FALSE" : "TRUE");
    WriteEdges(context, record.item, record.timing, element);
    if (const std::string_view id = MasterClipId(context, record.masterClip); !id.empty())
        element.SetPropertyShared("masterclipid", id);
    if (HasValue(record.subClip, "Name"))
        element.SetProperty("name", EscapeXML(record.subClip.GetProperty("Name")));
    element.AddChild(WriteRate(context, record.timing.rate, context.inTicks));
}

void WriteItemSource(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                     ObjectHandle element)
{
    const Ticks start = Int64Property(ItemEdges(record.item), "Start");
    const std::string_view name = element.GetProperty("name");
    if (record.medium)
        WriteFile(context, record, element);
    else if (IsTrue(ClipCore(record.clip), "IsMulticam"))
        AddItemIssue(context, track, start, ExportIssue::MulticamExportNotSupported, name);
    else if (record.sequence)
        TranslateNestedSequence(context, record.sequence, record.masterClip, element);
    else if (context.skippedItems.Insert(record.item))
        AddSkipped(context, PlaceOfItem(track, start, name));
}

void ReadClipOptions(ExportContext& context, ItemRecord& record, ObjectHandle element)
{
    element.SetPropertyShared("scaleToFrameSize",
                              IsTrue(record.clip, "ScaleToFrameSize") ? "TRUE" : "FALSE");
    WriteClipLabel(context, ClipProperties(record.clip), element);
    ReadSpeed(context, record.clip, record.timing);
    TranslateMarkers(context, {.owner = ClipCore(record.clip), .frameTicks = record.timing.rate},
                     element);
}

void TranslateHeadTransition(ExportContext& context, TrackPlace& track, ConstHandle item)
{
    const ConstHandle transition = HeadTransitionOf(item);
    if (!IsTrue(TransitionCore(transition), "HasOutgoingClip") ||
        transition.UniqueId() != track.lastTransition.UniqueId())
        TranslateTransition(context, track, transition);
}

void TranslateTailTransition(ExportContext& context, TrackPlace& track, ConstHandle item)
{
    TranslateTransition(context, track, TailTransitionOf(item));
}

void TranslateVideoItem(ExportContext& context, TrackPlace& track, ConstHandle item)
{
    ItemRecord record = RecordOf(context, item, track);
    if (!record.subClip || ShowsCaptions(record))
        return;
    // Times of picture items are frames, also in the hand-off form.
    const TimeFormScope frames(context, false);
    TranslateHeadTransition(context, track, item);
    if (MediumKindOf(record.medium) == MediumKind::ColourMatte)
        TranslateMatte(context, track, record);
    else
        TranslateClipItem(context, track, record);
    TranslateTailTransition(context, track, item);
}

} // namespace XPJ::RVX

#include "export/items.h"

#include "core/text.h"
#include "effects/audio_chain.h"
#include "export/effects.h"
#include "export/files.h"
#include "export/logging.h"
#include "export/markers.h"
#include "export/multiclips.h"
#include "export/rates.h"
#include "export/transitions.h"
#include "xmeml/files.h"

#include <algorithm>

namespace XPJ::RVX {

namespace {

// A still counts in the frames of the sequence.
Ticks RateOfItem(Media media, const TrackContext& track)
{
    const ConstHandle stream = VideoStreamOf(media);
    const Ticks rate = Int64Property(stream, "FrameRate");
    return IsRate(rate) && !IsTrue(stream, "IsStill") ? rate : track.sequence.frameTicks;
}

// The result is the id of the file.
std::string_view WriteMediaFile(ExportContext& context, Catalogs& catalogs,
                                const ItemRecord& record, ObjectHandle element)
{
    FileRecord& file = WriteFile(context, catalogs, {record.media, record.masterClip}, element);
    TranslateLoggingInfo(context.document, record.masterClip, &file, element);
    if (const ConstHandle browserItem = catalogs.masters.BrowserItemOf(record.masterClip)) {
        if (MediaKindOf(record.media) == MediaKind::Graphic)
            file.element.SetPropertyShared("mediaSource", "GraphicAndTypeMaster");
        WriteComments(context.document, browserItem, element);
    }
    return file.id;
}

ItemSource WriteSequence(ExportContext& context, SequenceCatalog& sequences,
                         const ItemRecord& record, ObjectHandle element)
{
    if (sequences.IsOpen(record.sequence)) {
        AddRemark(context, record, RemarkKind::SequenceInItself,
                  {.name = record.sequence.GetProperty("Name")});
        if (context.options.settings.openInterchange)
            return {};
    }
    const bool isWritten = !sequences.FindId(record.sequence).empty();
    const std::string_view id = sequences.IdOf(context, record.sequence);
    if (isWritten) {
        element.SetPropertyShared("sequenceid", id);
        return {.linkKey = id};
    }
    return {.linkKey = id,
            .nested = {.shown = {record.sequence, record.masterClip}, .clipItem = element}};
}

void AddMulticamIssue(ExportContext& context, const TrackContext& track, const ItemRecord& record)
{
    ItemLocation location = record.location;
    location.clip = record.name;
    location.time = FormatItemTime(track.sequence, record.Start());
    AddIssue(context, ExportIssue::MulticamExportNotSupported, location);
}

struct ItemEdge {
    std::string_view name;
    Ticks time;
    ConstHandle transition;
};

// An edge at a transition follows from the cut in it.
void ReportCut(ExportContext& context, const TrackContext& track, const ItemRecord& record,
               const ItemEdge& edge)
{
    const Ticks cut = WrittenCut(edge.transition);
    const Ticks distance = SubtractTicks(std::max(cut, edge.time), std::min(cut, edge.time));
    if (distance >= track.sequence.frameTicks)
        AddRemark(context, record, RemarkKind::TransitionCut,
                  {.name = edge.transition.GetProperty("DisplayName")});
}

// Where there is a transition its own edges count. The sequence that an import makes of a slug is
// of one length at any rate.
void ReportEdge(ExportContext& context, const TrackContext& track, const ItemRecord& record,
                const ItemEdge& edge)
{
    if (IsTransition(edge.transition))
        return ReportCut(context, track, record, edge);
    const Ticks lost = LostBehindFrame(edge.time, record.timing);
    if (lost == 0 || edge.time == kSlugSequenceDuration)
        return;
    const std::string detail =
        std::string(edge.name).append(" by ").append(FramesText(lost, track.sequence));
    AddRemark(context, record, RemarkKind::EdgeRounded, {.detail = detail});
}

// Edges that no program can use, and those that other programs can't: they skip what has no length.
void ReportLength(ExportContext& context, const ItemRecord& record)
{
    const ItemTiming& timing = record.timing;
    const auto frameOf = [&timing](Ticks edge) { return DivTicks(edge, timing.sequenceRate); };
    const bool statesEdges = !IsTransition(HeadTransitionOf(record.item)) &&
                             !IsTransition(TailTransitionOf(record.item));
    if (record.Start() < 0 || record.End() <= record.Start())
        AddRemark(context, record, RemarkKind::EdgesInvalid);
    else if (timing.openInterchange && statesEdges &&
             frameOf(record.Start()) == frameOf(record.End()))
        AddRemark(context, record, RemarkKind::ClipTooShort);
}

// Points that are stated and can't be; those that aren't follow from the length.
void ReportPoints(ExportContext& context, const ItemRecord& record)
{
    const Ticks in = Int64Property(record.clip, "InPoint");
    const Ticks out = Int64Property(record.clip, "OutPoint");
    if (in < 0 || (record.clip.HasProperty("OutPoint") && out <= in && !record.timing.infinite))
        AddRemark(context, record, RemarkKind::TimesAssumed, {.detail = in < 0 ? "in" : "out"});
}

// Of a multiclip of which an angle is written.
void ReportAngle(ExportContext& context, const TrackContext& track, const ItemRecord& record)
{
    AddRemark(context, record, RemarkKind::MulticamAngles);
    if (record.angle.isCut)
        AddRemark(context, record, RemarkKind::MulticamCut);
    const ConstHandle chain = ChainOfOwner(record.angle.item);
    if (track.type == MediaType::Audio)
        ReportAudioEffects(EffectContextOf(context, track, record.item, record.location.clip, 1),
                           chain, {.loss = RemarkKind::AngleEffect});
    else
        ReportVideoEffects(context, RemarkKind::AngleEffect, record.location, chain);
}

ConstHandle SequenceOfItem(MasterCatalog& masters, TrackItem item)
{
    return masters.SourceOf(MasterOfSubClip(SubClipOf(item))).sequence;
}

} // namespace

ItemRecord ReadItem(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                    TrackItem item)
{
    const ConstHandle clip = ClipOfSubClip(SubClipOf(item));
    ShownAngle angle;
    if (context.options.settings.openInterchange)
        angle = catalogs.angles.Find(clip, SequenceOfItem(catalogs.masters, item), track.type);
    const ConstHandle subClip = SubClipOf(angle.item ? angle.item : item);
    const MasterClip masterClip = MasterOfSubClip(subClip);
    const MasterSource& source = catalogs.masters.SourceOf(masterClip);
    return {.item = item,
            .location = LocationOfItem(track, item, SubClipOf(item).GetProperty("Name")),
            .isRepeated = !context.remarkedNodes.Insert(item),
            .angle = angle,
            .subClip = subClip,
            .clip = clip,
            .shownClip = ClipOfSubClip(subClip),
            .masterClip = masterClip,
            .media = source.media,
            .sequence = source.sequence,
            .boundaries = source.boundaries,
            .timing = {.unit = track.unit,
                       .rate = RateOfItem(source.media, track),
                       .sequenceRate = track.sequence.frameTicks,
                       .sourceOffset = angle.offset,
                       .infinite = IsTrue(source.media, "Infinite"),
                       .openInterchange = context.options.settings.openInterchange}};
}

void AddRemark(ExportContext& context, const ItemRecord& record, RemarkKind kind,
               const RemarkSubject& subject)
{
    if (!record.isRepeated)
        AddRemark(context.account, kind, record.location, subject);
}

void ReportItem(ExportContext& context, const TrackContext& track, const ItemRecord& record)
{
    if (record.isRepeated)
        return;
    ReportEdge(context, track, record, {"start", record.Start(), HeadTransitionOf(record.item)});
    ReportEdge(context, track, record, {"end", record.End(), TailTransitionOf(record.item)});
    ReportLength(context, record);
    ReportPoints(context, record);
    ReportLabel(context, record.clip, kClipLabel, record.location);
    if (record.angle.item)
        ReportAngle(context, track, record);
}

void WriteItemHead(ExportContext& context, MasterCatalog& masters, ItemRecord& record,
                   ObjectHandle element)
{
    record.id = NewId(context.document, "clipitem-", context.ids.clipItem);
    element.SetPropertyShared("id", record.id);
    element.SetPropertyShared("enabled", IsTrue(record.item, "IsMuted") ? "FALSE" : "TRUE");
    WriteEdges(record.item, record.timing, element);
    record.masterClipId = masters.IdOf(context, record.masterClip);
    if (!record.masterClipId.empty())
        element.SetPropertyShared("masterclipid", record.masterClipId);
    if (HasValue(record.subClip, "Name")) {
        record.name = context.document.Store(EscapeXML(record.subClip.GetProperty("Name")));
        element.SetPropertyShared("name", record.name);
    }
    element.AddChild(WriteRate(context.document, record.timing.rate, record.timing.unit));
}

void WriteClipOptions(ExportContext& context, ItemRecord& record, ObjectHandle element)
{
    element.SetPropertyShared("scaleToFrameSize",
                              IsTrue(record.clip, "ScaleToFrameSize") ? "TRUE" : "FALSE");
    WriteLabel(context, record.clip, kClipLabel, element);
    ReadSpeed(record.clip, record.shownClip, record.timing);
    TranslateMarkers(context,
                     {.owner = record.clip,
                      .frameTicks = record.timing.rate,
                      .unit = record.timing.unit,
                      .offset = record.timing.sourceOffset,
                      .location = record.isRepeated ? nullptr : &record.location},
                     element);
}

ItemSource WriteItemSource(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                           const ItemRecord& record, ObjectHandle element)
{
    ItemSource source;
    if (record.media)
        source.linkKey = WriteMediaFile(context, catalogs, record, element);
    else if (IsTrue(record.shownClip, "IsMulticam"))
        AddMulticamIssue(context, track, record);
    else if (record.sequence)
        source = WriteSequence(context, catalogs.sequences, record, element);
    else
        AddRemark(context, record, RemarkKind::ClipWithoutMedia);
    if (!record.masterClipId.empty())
        source.linkKey = record.masterClipId;
    return source;
}

void TranslateHeadTransition(ExportContext& context, TrackContext& track, const ItemRecord& record)
{
    const ConstHandle transition = HeadTransitionOf(record.item);
    const bool isTail = IsTrue(transition, "HasOutgoingClip");
    if (isTail && transition == track.lastTransition)
        return;
    if (!isTail || context.options.settings.openInterchange)
        TranslateTransition(context, track, transition);
    else
        AddRemark(context, record, RemarkKind::TransitionOfNext,
                  {.name = transition.GetProperty("DisplayName")});
}

void TranslateTailTransition(ExportContext& context, TrackContext& track, TrackItem item)
{
    TranslateTransition(context, track, TailTransitionOf(item));
}

} // namespace XPJ::RVX

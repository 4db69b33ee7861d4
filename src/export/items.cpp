#include "export/items.h"

#include "core/text.h"
#include "export/files.h"
#include "export/logging.h"
#include "export/markers.h"
#include "export/multiclips.h"
#include "export/rates.h"
#include "export/transitions.h"

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
    FileRecord& file =
        WriteFile(context, catalogs.files, {record.media, record.masterClip}, element);
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
    const bool isWritten = !sequences.FindId(record.sequence).empty();
    const std::string_view id = sequences.IdOf(context, record.sequence);
    if (isWritten) {
        element.SetPropertyShared("sequenceid", id);
        return {.linkKey = id};
    }
    return {.linkKey = id,
            .nested = {.shown = {record.sequence, record.masterClip}, .clipItem = element}};
}

ConstHandle SequenceOfItem(MasterCatalog& masters, TrackItem item)
{
    return masters.SourceOf(MasterOfSubClip(SubClipOf(item))).sequence;
}

} // namespace

ItemRecord ReadItem(const ExportContext& context, Catalogs& catalogs, const TrackContext& track,
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
    TranslateMarkers(context.document,
                     {.owner = record.clip,
                      .frameTicks = record.timing.rate,
                      .unit = record.timing.unit,
                      .offset = record.timing.sourceOffset},
                     element);
}

ItemSource WriteItemSource(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                           const ItemRecord& record, ObjectHandle element)
{
    ItemSource source;
    if (record.media)
        source.linkKey = WriteMediaFile(context, catalogs, record, element);
    else if (IsTrue(record.shownClip, "IsMulticam"))
        AddIssue(context, ExportIssue::MulticamExportNotSupported,
                 LocationOfItem(track, record.Start(), record.name, record.End()));
    else if (record.sequence)
        source = WriteSequence(context, catalogs.sequences, record, element);
    else
        AddSkipped(context, record.item,
                   LocationOfItem(track, record.Start(), record.name, record.End()));
    if (!record.masterClipId.empty())
        source.linkKey = record.masterClipId;
    return source;
}

void TranslateHeadTransition(ExportContext& context, TrackContext& track, TrackItem item)
{
    const ConstHandle transition = HeadTransitionOf(item);
    if (!IsTrue(transition, "HasOutgoingClip") || transition != track.lastTransition)
        TranslateTransition(context, track, transition);
}

void TranslateTailTransition(ExportContext& context, TrackContext& track, TrackItem item)
{
    TranslateTransition(context, track, TailTransitionOf(item));
}

} // namespace XPJ::RVX

#include "export/items.h"

#include "core/text.h"
#include "export/logging.h"
#include "export/markers.h"
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

} // namespace

ItemRecord ReadItem(MasterCatalog& masters, const TrackContext& track, TrackItem item)
{
    const ConstHandle subClip = SubClipOf(item);
    const MasterClip masterClip = MasterOfSubClip(subClip);
    const MasterSource& source = masters.SourceOf(masterClip);
    return {.item = item,
            .subClip = subClip,
            .clip = ClipOfSubClip(subClip),
            .masterClip = masterClip,
            .media = source.media,
            .sequence = source.sequence,
            .boundaries = source.boundaries,
            .timing = {.unit = track.unit,
                       .rate = RateOfItem(source.media, track),
                       .sequenceRate = track.sequence.frameTicks,
                       .infinite = IsTrue(source.media, "Infinite")}};
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

void WriteClipOptions(Document& document, ItemRecord& record, ObjectHandle element)
{
    element.SetPropertyShared("scaleToFrameSize",
                              IsTrue(record.clip, "ScaleToFrameSize") ? "TRUE" : "FALSE");
    WriteClipLabel(document, record.clip, element);
    ReadSpeed(record.clip, record.timing);
    TranslateMarkers(
        document,
        {.owner = record.clip, .frameTicks = record.timing.rate, .unit = record.timing.unit},
        element);
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

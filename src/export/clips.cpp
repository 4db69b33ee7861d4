#include "export/clips.h"

#include "core/text.h"
#include "export/clip_media.h"
#include "export/logging.h"
#include "export/markers.h"
#include "export/rates.h"
#include "export/sequences.h"
#include "project/labels.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace XPJ::RVX {

namespace {

constexpr int kVideoTrackKind = 1;

// The frames of the master's range: of its clip, else of the sequence that it shows.
Ticks RangeRate(MasterClip masterClip, ConstHandle sequence)
{
    const Ticks own = Int64Property(masterClip.MainClip(), "FrameRate");
    return IsRate(own) ? own : FrameTicksOfSequence(sequence);
}

std::string_view ClipName(MasterClip masterClip, ConstHandle clipItem)
{
    const std::string_view name = masterClip.GetProperty("Name");
    return name.empty() ? clipItem.GetProperty("Name") : name;
}

ItemLocation LocationOf(const BrowserClip& clip)
{
    return {.clip = ClipName(MasterOfItem(clip.item), clip.item), .bin = clip.bin};
}

bool HasRange(MasterClip masterClip)
{
    const ConstHandle main = masterClip.MainClip();
    return Int64Property(main, "InPoint") >= 1 || Int64Property(main, "OutPoint") >= 1;
}

// A sequence that is written already has what its first item shows of it.
void TranslateReference(ExportContext& context, const BrowserClip& clip, ConstHandle sequence,
                        std::string_view id, ObjectHandle children)
{
    const ObjectHandle reference = context.document.NewObject("sequenceref");
    reference.SetPropertyShared("id", id);
    children.AddChild(reference);
    const std::string_view name = clip.item.GetProperty("Name");
    if (HasRange(MasterOfItem(clip.item)) || !LabelOf(clip.item, kItemLabel).empty() ||
        (!name.empty() && name != sequence.GetProperty("Name")))
        AddRemark(context.account, RemarkKind::SequenceFirstMet, LocationOf(clip));
    if (IsMergedSequence(sequence))
        AddRemark(context.account, RemarkKind::MergedClipAsSequence, LocationOf(clip));
}

// A sequence with what the browser knows of it, and behind it those that were nested too deep.
void TranslateSequenceItem(ExportContext& context, Catalogs& catalogs, const BrowserClip& clip,
                           const ShownSequence& shown, ObjectHandle children)
{
    std::vector<ShownSequence> postponed;
    const ObjectHandle result = TranslateSequence(context, catalogs, shown, postponed);
    result.SetProperty("name", EscapeXML(clip.item.GetProperty("Name")));
    WriteLabel(context, clip.item, kItemLabel, result);
    ReportLabel(context, clip.item, kItemLabel, LocationOf(clip));
    WriteClipRange(context.DocumentUnit(), shown.masterClip.MainClip(),
                   RangeRate(shown.masterClip, shown.sequence), result);
    children.AddChild(result);
    while (!postponed.empty()) { // each of them may postpone others
        const ShownSequence next = postponed.back();
        postponed.pop_back();
        children.AddChild(TranslateSequence(context, catalogs, next, postponed));
    }
    if (IsMergedSequence(shown.sequence))
        AddIssue(
            context, ExportIssue::MergedClipExportedAsSequence,
            {.clip = shown.sequence.GetProperty("Name"), .trackKind = kVideoTrackKind, .time = {}});
}

// The import leaves the markers of a clip to its audio, where it has audio.
ConstHandle MarkedClip(MasterClip masterClip)
{
    const ConstHandle main = masterClip.MainClip();
    const ConstChildRange markers = MarkersOf(main);
    return markers.begin() != markers.end() ? main : masterClip.AudioClip();
}

// What the video and the audio of the master state of the clip.
void WriteClipOptions(ExportContext& context, const BrowserClip& clip, Ticks frameTicks,
                      ObjectHandle result)
{
    const MasterClip masterClip = MasterOfItem(clip.item);
    const ItemLocation location = LocationOf(clip);
    const ConstHandle marked = MarkedClip(masterClip);
    const Ticks offset = context.options.settings.openInterchange
                             ? 0
                             : std::max<Ticks>(Int64Property(marked, "InPoint"), 0);
    TranslateMarkers(context,
                     {.owner = marked,
                      .frameTicks = frameTicks,
                      .unit = context.DocumentUnit(),
                      .offset = offset,
                      .endOffset = offset,
                      .location = &location},
                     result);
    WriteClipRange(context.DocumentUnit(), masterClip.MainClip(), frameTicks, result);
}

// The label of the browser item counts; the one of its video where that has none.
void WriteLabels(ExportContext& context, ConstHandle clipItem, ConstHandle mainClip,
                 ObjectHandle result)
{
    if (!WriteLabel(context, clipItem, kItemLabel, result) && IsVideoClip(mainClip))
        WriteLabel(context, mainClip, kClipLabel, result);
}

// Of the clips of a master the first one with media has the file.
void ReportFiles(ExportContext& context, MasterClip masterClip, Media written,
                 const ItemLocation& location)
{
    for (const ConstHandle clip : masterClip.Clips()) {
        const Media media = MediaOfSource(SourceOfClip(clip));
        if (!media || media == written || MediaPath(media) == MediaPath(written))
            continue;
        AddRemark(context.account, RemarkKind::ClipOfFiles, location,
                  {.name = media.GetProperty("Title"), .id = MediaPath(media)});
        return;
    }
}

// What a clip of a bin has that the document has no term for.
void ReportClip(ExportContext& context, const BrowserClip& clip, const MasterSource& source)
{
    const ItemLocation location = LocationOf(clip);
    const MasterClip masterClip = MasterOfItem(clip.item);
    const std::string_view name = clip.item.GetProperty("Name");
    if (!name.empty() && name != location.clip)
        AddRemark(context.account, RemarkKind::ClipRenamed, location, {.name = name});
    if (HasValue(clip.item, "Column.PropertyText.Comment"))
        AddRemark(context.account, RemarkKind::ClipComment, location,
                  {.detail = clip.item.GetProperty("Column.PropertyText.Comment")});
    if (ShowsCaptions(source.media))
        AddRemark(context.account, RemarkKind::CaptionUnsupported, location);
    ReportLabel(context, clip.item, kItemLabel, location);
    ReportFiles(context, masterClip, source.media, location);
}

void TranslateMediaItem(ExportContext& context, Catalogs& catalogs, const BrowserClip& browserClip,
                        const MasterSource& source, ObjectHandle children)
{
    const ConstHandle clipItem = browserClip.item;
    const MasterClip masterClip = MasterOfItem(clipItem);
    const std::string_view id = catalogs.masters.IdOf(context, masterClip);
    if (id.empty()) {
        AddRemark(context.account, RemarkKind::GeneratorInBin, LocationOf(browserClip),
                  {.name = source.media.GetProperty("Title")});
        return;
    }
    ReportClip(context, browserClip, source);
    const ObjectHandle clip = context.document.NewObject("clip");
    clip.SetPropertyShared("id", id);
    if (!context.IsHandOff())
        clip.SetPropertyShared("explodedTracks", "true");
    CopyProperty(masterClip, "uid", clip, "uuid");
    WriteComments(context.document, clipItem, clip);
    const ConstHandle main = masterClip.MainClip();
    WriteLabels(context, clipItem, main, clip);
    if (const std::string_view name = ClipName(masterClip, clipItem); !name.empty())
        clip.SetProperty("name", EscapeXML(name));
    if (IsVideoClip(main))
        clip.SetPropertyShared("scaleToFrameSize",
                               IsTrue(main, "ScaleToFrameSize") ? "TRUE" : "FALSE");
    const bool isLogged = !VideoStreamOf(source.media) && context.options.settings.openInterchange;
    const Ticks logged = isLogged ? LoggedRate(masterClip) : 0;
    WriteClipOptions(context, browserClip, logged != 0 ? logged : ClipRate(source.media), clip);

    const bool hasFile = !ShowsCaptions(source.media);
    clip.AddChild(TranslateClipMedia(context, catalogs, masterClip, source));
    TranslateLoggingInfo(context.document, masterClip,
                         hasFile ? catalogs.files.Find(source.media) : nullptr, clip);
    if (context.options.settings.openInterchange)
        WriteGoodFlag(context.document, clipItem, clip);
    children.AddChild(clip);
}

} // namespace

void TranslateBrowserClip(ExportContext& context, Catalogs& catalogs, const BrowserClip& clip,
                          ObjectHandle children)
{
    const MasterClip masterClip = MasterOfItem(clip.item);
    const MasterSource& source = catalogs.masters.SourceOf(masterClip);
    if (source.media)
        TranslateMediaItem(context, catalogs, clip, source, children);
    else if (const std::string_view id = catalogs.sequences.FindId(source.sequence); !id.empty())
        TranslateReference(context, clip, source.sequence, id, children);
    else if (source.sequence)
        TranslateSequenceItem(context, catalogs, clip, {source.sequence, masterClip}, children);
    else
        AddRemark(context.account, RemarkKind::ClipWithoutMedia, LocationOf(clip));
}

} // namespace XPJ::RVX

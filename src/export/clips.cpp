#include "export/clips.h"

#include "core/text.h"
#include "export/clip_media.h"
#include "export/logging.h"
#include "export/markers.h"
#include "export/rates.h"
#include "export/sequences.h"

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

void WriteSequenceReference(Document& document, std::string_view id, ObjectHandle children)
{
    const ObjectHandle reference = document.NewObject("sequenceref");
    reference.SetPropertyShared("id", id);
    children.AddChild(reference);
}

// A sequence with what the browser knows of it, and behind it those that were nested too deep.
void TranslateSequenceItem(ExportContext& context, Catalogs& catalogs, ConstHandle clipItem,
                           const ShownSequence& shown, ObjectHandle children)
{
    std::vector<ShownSequence> postponed;
    const ObjectHandle result = TranslateSequence(context, catalogs, shown, postponed);
    result.SetProperty("name", EscapeXML(clipItem.GetProperty("Name")));
    WriteLabel(context, clipItem, kItemLabel, result);
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

std::string_view ClipName(MasterClip masterClip, ConstHandle clipItem)
{
    const std::string_view name = masterClip.GetProperty("Name");
    return name.empty() ? clipItem.GetProperty("Name") : name;
}

// The import leaves the markers of a clip to its audio, where it has audio.
ConstHandle MarkedClip(MasterClip masterClip)
{
    const ConstHandle main = masterClip.MainClip();
    const ConstChildRange markers = MarkersOf(main);
    return markers.begin() != markers.end() ? main : masterClip.AudioClip();
}

// What the video and the audio of the master state of the clip.
void WriteClipOptions(ExportContext& context, MasterClip masterClip, Ticks frameTicks,
                      ObjectHandle result)
{
    const ConstHandle marked = MarkedClip(masterClip);
    const Ticks offset = context.options.settings.openInterchange
                             ? 0
                             : std::max<Ticks>(Int64Property(marked, "InPoint"), 0);
    TranslateMarkers(context.document,
                     {.owner = marked,
                      .frameTicks = frameTicks,
                      .unit = context.DocumentUnit(),
                      .offset = offset,
                      .endOffset = offset},
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

void TranslateMediaItem(ExportContext& context, Catalogs& catalogs, ConstHandle clipItem,
                        const MasterSource& source, ObjectHandle children)
{
    const MasterClip masterClip = MasterOfItem(clipItem);
    const std::string_view id = catalogs.masters.IdOf(context, masterClip);
    if (id.empty())
        return;
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
    WriteClipOptions(context, masterClip, ClipRate(source.media), clip);

    const bool hasFile = !ShowsCaptions(source.media);
    clip.AddChild(TranslateClipMedia(context, catalogs, masterClip, source));
    TranslateLoggingInfo(context.document, masterClip,
                         hasFile ? catalogs.files.Find(source.media) : nullptr, clip);
    children.AddChild(clip);
}

} // namespace

void TranslateBrowserClip(ExportContext& context, Catalogs& catalogs, ConstHandle clipItem,
                          ObjectHandle children)
{
    const MasterClip masterClip = MasterOfItem(clipItem);
    const MasterSource& source = catalogs.masters.SourceOf(masterClip);
    if (source.media)
        TranslateMediaItem(context, catalogs, clipItem, source, children);
    else if (const std::string_view id = catalogs.sequences.FindId(source.sequence); !id.empty())
        WriteSequenceReference(context.document, id, children);
    else if (source.sequence)
        TranslateSequenceItem(context, catalogs, clipItem, {source.sequence, masterClip}, children);
}

} // namespace XPJ::RVX

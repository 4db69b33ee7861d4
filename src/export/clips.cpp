#include "export/clips.h"

#include "core/text.h"
#include "export/clip_media.h"
#include "export/clip_notes.h"
#include "export/logging.h"
#include "export/markers.h"
#include "export/media.h"
#include "export/rates.h"
#include "export/sequences.h"
#include "project/accessors.h"

#include <algorithm>
#include <string_view>

namespace XPJ::RVX {

namespace {

constexpr int kVideoTrackKind = 1;

void WriteRangePoint(const ExportContext& context, ConstHandle core, Name key, Ticks frameTicks,
                     ObjectHandle element, Name newKey)
{
    const Ticks point = Int64Property(core, key);
    if (point >= 1)
        element.SetProperty(newKey, TimeText(context, point, frameTicks));
}

void WriteClipRange(const ExportContext& context, ConstHandle core, Ticks frameTicks,
                    ObjectHandle element)
{
    WriteRangePoint(context, core, "InPoint", frameTicks, element, "in");
    WriteRangePoint(context, core, "OutPoint", frameTicks, element, "out");
}

// The frames of the master's range: of its clip, else of the sequence that it shows.
Ticks RangeRate(ConstHandle masterClip, ConstHandle sequence)
{
    const Ticks own = Int64Property(ClipCore(MainClip(masterClip)), "FrameRate");
    return IsRate(own) ? own : FrameTicksOfSequence(sequence);
}

void TranslateSequenceItem(ExportContext& context, ConstHandle clipItem, ConstHandle sequence,
                           ObjectHandle children)
{
    const std::string_view writtenId = FindNote(context.sequenceIds, sequence);
    if (!writtenId.empty()) {
        const ObjectHandle reference = context.document.NewObject("sequenceref");
        reference.SetPropertyShared("id", writtenId);
        children.AddChild(reference);
        return;
    }
    const ConstHandle masterClip = MasterOfItem(clipItem);
    const ObjectHandle result = TranslateSequence(context, sequence, masterClip);
    result.SetProperty("name", EscapeXML(ItemName(clipItem)));
    WriteItemLabel(context, ItemProperties(clipItem), result);
    WriteClipRange(context, ClipCore(MainClip(masterClip)), RangeRate(masterClip, sequence),
                   result);
    children.AddChild(result);
    TranslatePostponedSequences(context, children);
    if (IsMergedSequence(sequence))
        AddIssue(context, ExportIssue::MergedClipExportedAsSequence,
                 {.clip = sequence.GetProperty("Name"), .trackKind = kVideoTrackKind, .time = {}});
}

std::string_view ClipName(ConstHandle masterClip, ConstHandle clipItem)
{
    const std::string_view name = masterClip.GetProperty("Name");
    return name.empty() ? ItemName(clipItem) : name;
}

// The import leaves the markers of a clip to its sound, where it has sound.
ConstHandle MarkedCore(ConstHandle masterClip)
{
    const ConstHandle main = ClipCore(MainClip(masterClip));
    const ConstChildRange markers = MarkerEntriesOf(main);
    return markers.begin() != markers.end() ? main : ClipCore(FirstAudioClip(masterClip));
}

// What the master's picture and its sound say of the clip.
void TranslateClips(ExportContext& context, ConstHandle masterClip, Ticks frameTicks,
                    ObjectHandle result)
{
    const ConstHandle main = MainClip(masterClip);
    if (IsVideoClip(main)) {
        result.SetProperty("scaleToFrameSize", IsTrue(main, "ScaleToFrameSize") ? "TRUE" : "FALSE");
        WriteClipLabel(context, ClipProperties(main), result);
    }
    const ConstHandle marked = MarkedCore(masterClip);
    const Ticks in = std::max<Ticks>(Int64Property(marked, "InPoint"), 0);
    TranslateMarkers(context, {.owner = marked, .frameTicks = frameTicks, .offset = in}, result);
    WriteClipRange(context, ClipCore(main), frameTicks, result);
}

void TranslateMediaItem(ExportContext& context, ConstHandle clipItem, MasterMedia media,
                        ObjectHandle children)
{
    const ConstHandle masterClip = MasterOfItem(clipItem);
    const std::string_view id = MasterClipId(context, masterClip);
    if (id.empty())
        return;
    const ObjectHandle clip = context.document.NewObject("clip");
    clip.SetPropertyShared("id", id);
    if (!context.vl2snMode)
        clip.SetPropertyShared("explodedTracks", "true");
    CopyProperty(masterClip, "UIDObject", clip, "uuid");
    WriteComments(context, ItemProperties(clipItem), clip);
    WriteItemLabel(context, ItemProperties(clipItem), clip);
    if (const std::string_view name = ClipName(masterClip, clipItem); !name.empty())
        clip.SetProperty("name", EscapeXML(name));

    media.boundaries.ticksPerFrame = ClipRate(media.medium);
    TranslateClips(context, masterClip, media.boundaries.ticksPerFrame, clip);
    ObjectHandle file;
    clip.AddChild(TranslateClipMedia(context, masterClip, media, file));
    TranslateLoggingInfo(context, masterClip, file, clip);
    children.AddChild(clip);
}

} // namespace

void TranslateMasterClip(ExportContext& context, ConstHandle clipItem, ObjectHandle children)
{
    const ConstHandle masterClip = MasterOfItem(clipItem);
    const MasterMedia media = MediaOfMaster(context, masterClip);
    if (media.medium)
        TranslateMediaItem(context, clipItem, media, children);
    else if (media.sequence)
        TranslateSequenceItem(context, clipItem, media.sequence, children);
}

} // namespace XPJ::RVX

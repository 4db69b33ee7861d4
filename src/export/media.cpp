#include "export/media.h"

#include "core/numbers.h"
#include "export/rates.h"
#include "project/accessors.h"

#include <algorithm>
#include <string_view>

namespace XPJ::RVX {

namespace {

// Media that the host makes have a four-character code in place of a path, as a decimal number.
struct SyntheticCode {
    std::int64_t code;
    MediumKind kind;
};

constexpr SyntheticCode kSyntheticCodes[] = {
    {1129270354, MediumKind::ColourMatte}, // "COLR"
    {1196574294, MediumKind::Graphic},     // "GRFV"
    {1111577171, MediumKind::BarsAndTone}, // "BARS"
    {1414091852, MediumKind::Title},       // "TITL"
};

Ticks TicksOr(ConstHandle node, Name key, Ticks missing)
{
    return HasValue(node, key) ? Int64Property(node, key) : missing;
}

ClipBoundaries ReadBoundaries(ConstHandle source)
{
    const ConstHandle stated = BoundariesOfSource(source);
    ClipBoundaries boundaries;
    boundaries.start = TicksOr(stated, "StartBoundary", -1);
    boundaries.end = TicksOr(stated, "EndBoundary", -1);
    boundaries.duration = TicksOr(source, "OriginalDuration", -1);
    boundaries.hard = !HasValue(stated, "BoundariesAreHard") || IsTrue(stated, "BoundariesAreHard");
    return boundaries;
}

MasterMedia ReadMedia(ConstHandle masterClip)
{
    MasterMedia media;
    for (const ConstHandle clip : ClipsOfMaster(masterClip)) {
        const ConstHandle source = SourceOfClip(clip);
        if (const ConstHandle medium = MediaOfSource(source); medium && !media.medium) {
            media.medium = medium;
            media.boundaries = ReadBoundaries(source);
        }
        if (!media.sequence)
            media.sequence = SequenceOfSource(source);
    }
    return media;
}

bool IsWrittenAsClip(ConstHandle medium)
{
    const MediumKind kind = MediumKindOf(medium);
    return medium && kind != MediumKind::ColourMatte && kind != MediumKind::Graphic;
}

} // namespace

const MasterMedia& MediaOfMaster(ExportContext& context, ConstHandle masterClip)
{
    const auto [entry, isNew] = context.masterMedia.try_emplace(masterClip.UniqueId());
    if (isNew)
        entry->second = ReadMedia(masterClip);
    return entry->second;
}

ConstHandle AudioMediumOfMaster(ConstHandle masterClip)
{
    for (const ConstHandle clip : ClipsOfMaster(masterClip))
        if (IsAudioClip(clip))
            if (const ConstHandle medium = MediaOfSource(SourceOfClip(clip)))
                return medium;
    return {};
}

std::string_view MediumPath(ConstHandle medium)
{
    return medium.GetProperty(medium.HasProperty("FilePath") ? "FilePath" : "ActualMediaFilePath");
}

MediumKind MediumKindOf(ConstHandle medium)
{
    const std::string_view path = MediumPath(medium);
    if (path.find_first_of("/\\") != path.npos)
        return MediumKind::File;
    for (const SyntheticCode& row : kSyntheticCodes)
        if (ParseInt64(path) == row.code)
            return row.kind;
    return MediumKind::Synthetic;
}

std::string_view MasterClipId(ExportContext& context, ConstHandle masterClip)
{
    const std::string_view noted = FindNote(context.masterClipIds, masterClip);
    if (!noted.empty() || !IsWrittenAsClip(MediaOfMaster(context, masterClip).medium))
        return noted;
    const std::string_view id = NewId(context, "masterclip-", context.ids.masterClip);
    context.masterClipIds.emplace(masterClip.UniqueId(), id);
    return id;
}

Ticks ClipRate(ConstHandle medium)
{
    const Ticks rate = Int64Property(VideoStreamOf(medium), "FrameRate");
    return IsRate(rate) ? rate : kNtscFrameTicks;
}

void ApplySubclipOffsets(ExportContext& context, const ClipBoundaries& boundaries,
                         ObjectHandle element)
{
    const Ticks rate = boundaries.ticksPerFrame;
    if ((boundaries.start < 0 && boundaries.end < 0) || rate <= 0)
        return;
    const std::int64_t start = std::max<Ticks>(boundaries.start, 0) / rate;
    std::int64_t tail = 0;
    if (boundaries.duration > 0 && boundaries.end > 0) {
        const std::int64_t end = boundaries.end / rate;
        element.SetProperty("duration", IntToString(end - start));
        tail = boundaries.duration / rate - end;
    }
    if (start < 1 && tail < 1)
        return;
    if (boundaries.hard) {
        const ObjectHandle info = context.document.NewObject("subclipinfo");
        info.SetProperty("startoffset", IntToString(start));
        info.SetProperty("endoffset", IntToString(tail));
        element.AddChild(info);
    } else {
        element.SetProperty("velaSoftStartOffset", IntToString(start));
        element.SetProperty("velaSoftEndOffset", IntToString(tail));
    }
}

} // namespace XPJ::RVX

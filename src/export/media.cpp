#include "export/media.h"

#include "core/numbers.h"

#include <algorithm>
#include <string_view>

namespace XPJ::RVX {

namespace {

Ticks TicksOr(ConstHandle node, Name key, Ticks missing)
{
    return HasValue(node, key) ? Int64Property(node, key) : missing;
}

} // namespace

bool IsWrittenAsClip(Media media)
{
    const MediaKind kind = MediaKindOf(media);
    return media && kind != MediaKind::ColorMatte && kind != MediaKind::Graphic;
}

bool ShowsCaptions(Media media)
{
    return VideoStreamOf(media).GetName() == "CaptioningStream";
}

Ticks ClipRate(Media media)
{
    const Ticks rate = Int64Property(VideoStreamOf(media), "FrameRate");
    return IsRate(rate) ? rate : kNtscFrameTicks;
}

Ticks LoggedRate(MasterClip masterClip)
{
    const Ticks rate = Int64Property(LoggingInfoOf(masterClip), "MediaFrameRate");
    return IsRate(rate) ? rate : 0;
}

ClipBoundaries ReadBoundaries(ConstHandle source)
{
    return {.start = TicksOr(source, "StartBoundary", -1),
            .end = TicksOr(source, "EndBoundary", -1),
            .duration = TicksOr(source, "OriginalDuration", -1),
            .hard = !HasValue(source, "BoundariesAreHard") || IsTrue(source, "BoundariesAreHard")};
}

void WriteSubclipOffsets(Document& document, const ClipBoundaries& boundaries, Ticks frameTicks,
                         ObjectHandle element)
{
    if ((boundaries.start < 0 && boundaries.end < 0) || frameTicks <= 0)
        return;
    const std::int64_t start = std::max<Ticks>(boundaries.start, 0) / frameTicks;
    std::int64_t tail = 0;
    if (boundaries.duration > 0 && boundaries.end > 0) {
        const std::int64_t end = boundaries.end / frameTicks;
        element.SetProperty("duration", IntToString(end - start));
        tail = boundaries.duration / frameTicks - end;
    }
    if (start < 1 && tail < 1)
        return;
    if (boundaries.hard) {
        const ObjectHandle info = document.NewObject("subclipinfo");
        info.SetProperty("startoffset", IntToString(start));
        info.SetProperty("endoffset", IntToString(tail));
        element.AddChild(info);
    } else {
        element.SetProperty("velaSoftStartOffset", IntToString(start));
        element.SetProperty("velaSoftEndOffset", IntToString(tail));
    }
}

} // namespace XPJ::RVX

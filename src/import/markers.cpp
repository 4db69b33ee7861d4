#include "import/markers.h"

#include "core/numbers.h"
#include "xmeml/rates.h"

#include <string>
#include <string_view>

namespace XPJ {

namespace {

// How the comment of a chapter begins; the blank and the entity belong to it.
constexpr std::string_view kChapterPrefix = " &lt;CHAPTER";
constexpr std::string_view kQuoteEntity = "&quot;";

// A document timed in ticks has frames of one tick.
constexpr Ticks kTickFrame = 1;

// Marker texts end up in JSON, which has its own way of writing quotes.
std::string WithPlainQuotes(std::string_view text)
{
    std::string result(text);
    for (std::size_t i = result.find(kQuoteEntity); i != result.npos;
         i = result.find(kQuoteEntity, i + 1))
        result.replace(i, kQuoteEntity.size(), 1, '"');
    return result;
}

// 0 for a marker without an end. Audio hand-off documents count lengths in samples, but not
// positions.
Ticks MarkerDuration(ConstHandle marker, Ticks frameTicks)
{
    const Ticks out = HasValue(marker, "out") ? Int64Property(marker, "out") : -1;
    if (out == -1)
        return 0;
    const Ticks unit = frameTicks == kTickFrame ? kSampleTicks48k : frameTicks;
    return MultiplyTicks(SubtractTicks(out, Int64Property(marker, "in")), unit);
}

void SetComment(std::string_view comment, ObjectHandle result)
{
    if (comment.empty())
        return;
    const bool isChapter = comment.starts_with(kChapterPrefix);
    if (isChapter)
        comment.remove_prefix(kChapterPrefix.size());
    result.SetProperty("Type", isChapter ? "Sequence" : "Comment");
    result.SetProperty("Comment", comment);
}

ObjectHandle TranslateMarker(Document& document, ConstHandle marker, Ticks frameTicks)
{
    const ObjectHandle result = document.NewObject("Marker");
    result.SetProperty("Name", WithPlainQuotes(marker.GetProperty("name")));
    SetComment(WithPlainQuotes(marker.GetProperty("comment")), result);
    result.SetNumber("StartTime", MultiplyTicks(Int64Property(marker, "in"), frameTicks));
    result.SetNumber("Duration", MarkerDuration(marker, frameTicks));
    if (HasValue(marker, "velaColor"))
        CopyProperty(marker, "velaColor", result, "Color");
    return result;
}

} // namespace

ObjectHandle TranslateMarkers(Document& document, ConstHandle element, Ticks defaultTicks)
{
    const ObjectHandle markers = document.NewObject("Markers");
    const Ticks ownTicks = TicksOfRate(element.GetChild("rate"));
    const Ticks frameTicks = ownTicks != 0 ? ownTicks : defaultTicks;
    if (frameTicks != 0)
        for (const ConstHandle& marker : element.GetChildren("marker"))
            markers.AddChild("Marker", TranslateMarker(document, marker, frameTicks));
    return markers;
}

void RemarkOnMarkers(ImportState& state, ConstHandle element, const ItemLocation& location)
{
    for (const ConstHandle& marker : element.GetChildren("marker"))
        if (!HasValue(marker, "in") || Int64Property(marker, "in") < 0)
            AddRemark(state.account, RemarkKind::MarkerWithoutTime, location,
                      {.name = marker.GetProperty("name")});
}

} // namespace XPJ

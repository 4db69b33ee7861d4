#include "export/markers.h"

#include "core/text.h"
#include "export/rates.h"
#include "project/accessors.h"
#include "project/marker_record.h"

#include <algorithm>
#include <optional>
#include <string>

namespace XPJ::RVX {

namespace {

// Marks of the host's own work, which mean nothing elsewhere.
constexpr std::string_view kSpeechType = "Speech";
constexpr std::string_view kInOutType = "InOut";

// The part of its medium that an owner shows.
struct MediaRange {
    Ticks start = 0;
    Ticks end = 0;
};

std::optional<MediaRange> RangeOf(ConstHandle owner)
{
    const ConstHandle stated = BoundariesOfSource(SourceOfCore(owner));
    const MediaRange range{Int64Property(stated, "StartBoundary"),
                           Int64Property(stated, "EndBoundary")};
    if (!HasValue(stated, "StartBoundary") || range.start < 0 || range.end <= range.start)
        return std::nullopt;
    return range;
}

struct MarkerTimes {
    Ticks in = 0;
    Ticks end = 0; // counts like `in`

    bool AreWritten() const { return in >= 0 && end >= in; }
};

// Markers of a medium stand at its times; only what lies in the shown part is written.
//
//   medium  |------|=======range=======|---|
//   marker      |------|                        in = range start, end as it is
//   marker                         |------|     end = range end
MarkerTimes TimesInRange(const MarkerRecord& record, const MediaRange& range)
{
    return {std::max(record.start, range.start),
            std::min(AddTicks(record.start, record.duration), range.end)};
}

MarkerTimes TimesWithOffset(const MarkerRecord& record, Ticks offset)
{
    const Ticks in = AddTicks(record.start, offset);
    return {in, AddTicks(AddTicks(in, offset), record.duration)};
}

std::string OutText(const ExportContext& context, const MarkerRecord& record,
                    const MarkerTimes& times, Ticks frameTicks)
{
    if (record.duration == 0)
        return "-1";
    return record.duration < 0 ? "0" : TimeText(context, times.end, frameTicks);
}

void WriteMarker(ExportContext& context, const MarkerRecord& record, const MarkerTimes& times,
                 Ticks frameTicks, ObjectHandle element)
{
    const ObjectHandle marker = context.document.NewObject("marker");
    marker.SetProperty("in", TimeText(context, times.in, frameTicks));
    marker.SetProperty("name", EscapeXML(record.name));
    marker.SetProperty("out", OutText(context, record, times, frameTicks));
    marker.SetProperty("comment", EscapeXML(record.comment));
    if (!record.colour.empty())
        marker.SetProperty("velaColor", record.colour);
    element.AddChild(marker);
}

} // namespace

void TranslateMarkers(ExportContext& context, const MarkerPlace& place, ObjectHandle element)
{
    const std::optional<MediaRange> range = RangeOf(place.owner);
    for (const ConstHandle entry : MarkerEntriesOf(place.owner)) {
        const std::optional<MarkerRecord> record = ParseMarkerRecord(MarkerRecordOf(entry));
        if (!record || record->type == kSpeechType || record->type == kInOutType)
            continue;
        const MarkerTimes times =
            range ? TimesInRange(*record, *range) : TimesWithOffset(*record, place.offset);
        if (times.AreWritten())
            WriteMarker(context, *record, times, place.frameTicks, element);
    }
}

} // namespace XPJ::RVX

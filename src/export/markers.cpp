#include "export/markers.h"

#include "core/numbers.h"
#include "core/text.h"
#include "export/rates.h"
#include "project/marker_record.h"

#include <algorithm>
#include <optional>
#include <string>

namespace XPJ::RVX {

namespace {

// Types that the host makes for its own use; they mean nothing elsewhere.
constexpr std::string_view kSpeechType = "Speech";
constexpr std::string_view kInOutType = "InOut";

// The part of its media that an owner shows.
struct MediaRange {
    Ticks start = 0;
    Ticks end = 0;
};

std::optional<MediaRange> RangeOf(ConstHandle owner)
{
    const ConstHandle source = SourceOfClip(owner);
    const MediaRange range{Int64Property(source, "StartBoundary"),
                           Int64Property(source, "EndBoundary")};
    if (!HasValue(source, "StartBoundary") || range.start < 0 || range.end <= range.start)
        return std::nullopt;
    return range;
}

struct MarkerTimes {
    Ticks in = 0;
    Ticks end = 0; // counts like `in`

    bool AreWritten() const { return in >= 0 && end >= in; }
};

// Markers of media count in their times; only what lies in the shown part is written.
//
//   media   |------|=======range=======|---|
//   marker      |------|                        in = range start, end as it is
//   marker                         |------|     end = range end
MarkerTimes TimesInRange(const MarkerRecord& record, const MediaRange& range)
{
    return {std::max(record.start, range.start),
            std::min(AddTicks(record.start, record.duration), range.end)};
}

MarkerTimes TimesWithOffset(const MarkerRecord& record, const MarkerSource& source)
{
    const Ticks in = AddTicks(record.start, source.offset);
    return {in, AddTicks(AddTicks(in, source.endOffset), record.duration)};
}

// To the letter the frame that has begun, else the nearest one.
std::string FrameText(const ExportContext& context, const MarkerSource& source, Ticks time)
{
    if (context.options.settings.openInterchange && source.unit == TimeUnit::Frames)
        return IntToString(NearestFrame(time, source.frameTicks));
    return TimeText(source.unit, time, source.frameTicks);
}

std::string OutText(const ExportContext& context, const MarkerRecord& record,
                    const MarkerTimes& times, const MarkerSource& source)
{
    if (record.duration == 0)
        return "-1";
    return record.duration < 0 ? "0" : FrameText(context, source, times.end);
}

ObjectHandle WriteMarker(const ExportContext& context, const MarkerRecord& record,
                         const MarkerTimes& times, const MarkerSource& source)
{
    const ObjectHandle marker = context.document.NewObject("marker");
    marker.SetProperty("in", FrameText(context, source, times.in));
    marker.SetProperty("name", EscapeXML(record.name));
    marker.SetProperty("out", OutText(context, record, times, source));
    marker.SetProperty("comment", EscapeXML(record.comment));
    if (!record.color.empty())
        marker.SetProperty("velaColor", record.color);
    return marker;
}

// ---- Remarks

constexpr std::string_view kOrdinaryType = "Comment";

// At the marker, where its owner is a sequence.
void AddMarkerRemark(ExportContext& context, const MarkerSource& source, RemarkKind kind,
                     const MarkerRecord& record)
{
    ItemLocation location = *source.location;
    if (location.clip.empty())
        location.span.start = DivTicksOr0(std::max<Ticks>(record.start, 0), source.frameTicks);
    AddRemark(context.account, kind, location, {.name = record.name, .detail = record.type});
}

// The points in and out are written as such.
void ReportSkipped(ExportContext& context, const MarkerSource& source,
                   const std::optional<MarkerRecord>& record)
{
    if (!source.location || (record && record->type == kInOutType))
        return;
    if (record)
        AddMarkerRemark(context, source, RemarkKind::MarkerLost, *record);
    else
        AddRemark(context.account, RemarkKind::MarkerUnreadable, *source.location);
}

void ReportMarker(ExportContext& context, const MarkerSource& source, const MarkerRecord& record,
                  const MarkerTimes& times)
{
    if (!source.location)
        return;
    const auto add = [&](RemarkKind kind) { AddMarkerRemark(context, source, kind, record); };
    if (!times.AreWritten())
        return add(RemarkKind::MarkerOutside);
    if (times.end - times.in < record.duration)
        add(RemarkKind::MarkerTrimmed);
    if (!record.type.empty() && record.type != kOrdinaryType)
        add(RemarkKind::MarkerKind);
}

} // namespace

void TranslateMarkers(ExportContext& context, const MarkerSource& source, ObjectHandle element)
{
    const std::optional<MediaRange> range = RangeOf(source.owner);
    for (const ConstHandle marker : MarkersOf(source.owner)) {
        const std::optional<MarkerRecord> record = ParseMarkerRecord(MarkerRecordOf(marker));
        if (!record || record->type == kSpeechType || record->type == kInOutType) {
            ReportSkipped(context, source, record);
            continue;
        }
        const MarkerTimes times =
            range ? TimesInRange(*record, *range) : TimesWithOffset(*record, source);
        if (times.AreWritten())
            element.AddChild(WriteMarker(context, *record, times, source));
        ReportMarker(context, source, *record, times);
    }
}

} // namespace XPJ::RVX

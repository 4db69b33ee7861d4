#include "import/item_place.h"

#include "core/frame_rate.h"
#include "import/formats.h"
#include "import/sequences.h"

namespace XPJ {

namespace {

// Documents timed in ticks state the rate of their numbers beside the timecode.
std::string TimecodeOf(const ImportState& state, ObjectHandle sequence, Frames start)
{
    const SequenceRates rates = RatesOfSequence(state, sequence);
    const ObjectHandle timecode = sequence.GetChild("timecode");
    const ObjectHandle rate =
        rates.edges == rates.video ? sequence.GetChild("rate") : timecode.GetChild("rate");
    const std::int64_t base = Int64Property(rate, "timebase");
    const bool isDrop = IsTrue(rate, "ntsc") && (base == 30 || base == 60) && !IsNonDrop(timecode);
    const Frames frame = MultiplyTicks(start, rates.edges) / rates.video;
    return FormatTimecode(AddTicks(frame, Int64Property(timecode, "frame")), base, isDrop);
}

} // namespace

ItemPlace PlaceOfItem(const ImportState& state, ObjectHandle sequence, ObjectHandle item,
                      MediaType type, int trackIndex, Frames start)
{
    return {.sequence = sequence.GetProperty("name"),
            .clip = item.GetProperty("name"),
            .trackKind = type == MediaType::Video ? 1 : 2,
            .trackIndex = trackIndex,
            .time = TimecodeOf(state, sequence, start)};
}

void AddItemIssue(ImportState& state, const ItemPlace& place, ImportIssue kind,
                  std::string_view subject)
{
    EffectContext{.document = state.document, .issues = state.issues, .place = place}.AddIssue(
        kind, subject);
}

} // namespace XPJ

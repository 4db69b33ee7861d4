#include "import/item_issues.h"

#include "core/frame_rate.h"
#include "xmeml/formats.h"
#include "import/sequences.h"

namespace XPJ {

SequenceClock ClockOf(const ImportState& state, ObjectHandle sequence)
{
    const SequenceRates rates = RatesOfSequence(state, sequence);
    const ObjectHandle timecode = sequence.GetChild("timecode");
    const FrameRate rate = RateOfFrame(rates.video);
    const bool canDrop = rate.ntsc && (rate.timebase == 30 || rate.timebase == 60);
    return {.name = sequence.GetProperty("name"),
            .edges = rates.edges,
            .frames = rates.video,
            .first = Int64Property(timecode, "frame"),
            .base = rate.timebase,
            .drop = canDrop && !IsNonDrop(timecode)};
}

std::string SequenceClock::TimecodeOf(Frames start) const
{
    const Frames frame = MultiplyTicks(start, edges) / frames;
    return FormatTimecode(AddTicks(frame, first), base, drop);
}

ItemPlace PlaceOfItem(const SequenceClock& clock, ObjectHandle item, MediaType type, int trackIndex,
                      Frames start)
{
    return {.sequence = clock.name,
            .clip = item.GetProperty("name"),
            .trackKind = type == MediaType::Video ? 1 : 2,
            .trackIndex = trackIndex,
            .time = clock.TimecodeOf(start)};
}

void AddItemIssue(ImportState& state, const ItemPlace& place, ImportIssue kind,
                  std::string_view subject)
{
    EffectContext{.document = state.document, .issues = state.issues, .place = place}.AddIssue(
        kind, subject);
}

void AddSkipped(ImportState& state, const ItemPlace& place)
{
    state.skipped.push_back(IssueAt(place));
}

} // namespace XPJ

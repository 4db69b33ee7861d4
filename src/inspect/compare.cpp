#include "inspect/compare.h"

#include "inspect/compare_items.h"
#include "inspect/compare_parts.h"
#include "inspect/difference_list.h"
#include "inspect/matching.h"

#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

bool IsEmpty(const Track& track)
{
    return track.items.empty() && track.transitions.empty();
}

std::size_t CountItems(const Sequence& sequence)
{
    std::size_t count = 0;
    for (const Track& track : sequence.tracks)
        count += track.items.size();
    return count;
}

void CompareSettings(const Sequence& left, const Sequence& right, DifferenceList& differences)
{
    const ComparedSubject subject{.name = left.name};
    differences.CompareTexts(subject, "name", left.name, right.name);
    if (left.format.ticks != right.format.ticks)
        differences.Add(subject, Change::Changed, "frame length", TickText(left.format.ticks),
                        TickText(right.format.ticks));
    differences.CompareSwitches(subject, "drop frame", left.format.drop, right.format.drop);
    differences.CompareTimes(subject, "start timecode", left.format, left.start, right.start);
    const auto frameText = [](const Sequence& sequence) {
        return fmt::format("{}x{}", sequence.width, sequence.height);
    };
    if (left.width > 0 && right.width > 0)
        differences.CompareTexts(subject, "frame size", frameText(left), frameText(right));
    CompareMarkers({}, left.format, left.markers, right.markers, differences);
}

void CompareTracks(const Sequence& left, const Sequence& right, DifferenceList& differences)
{
    Matching matching(left.tracks.size(), right.tracks.size());
    MatchBy(matching, left.tracks, right.tracks,
            [](const Track& track) { return std::pair(track.kind, track.number); });
    const auto subjectOf = [](const Track& track) {
        return ComparedSubject{Subject::Track, TrackText(track), track.name};
    };
    for (std::size_t i = 0; i < left.tracks.size(); ++i) {
        const Track& track = left.tracks[i];
        const ComparedSubject subject = subjectOf(track);
        if (matching.PartnerInB(i) == kNothing) {
            if (!IsEmpty(track))
                differences.Add(subject, Change::Lost);
            continue;
        }
        const Track& other = right.tracks[matching.PartnerInB(i)];
        differences.CompareTexts(subject, "name", track.name, other.name);
        differences.CompareSwitches(subject, "enabled", track.enabled, other.enabled);
        differences.CompareSwitches(subject, "locked", track.locked, other.locked);
    }
    for (std::size_t i = 0; i < right.tracks.size(); ++i)
        if (matching.PartnerInA(i) == kNothing && !IsEmpty(right.tracks[i]))
            differences.Add(subjectOf(right.tracks[i]), Change::Added);
}

struct TransitionOnTrack {
    const Track* track;
    const Transition* transition;
};

std::vector<TransitionOnTrack> TransitionsOf(const Sequence& sequence)
{
    std::vector<TransitionOnTrack> transitions;
    for (const Track& track : sequence.tracks)
        for (const Transition& transition : track.transitions)
            transitions.push_back({&track, &transition});
    return transitions;
}

ComparedSubject SubjectOf(const TransitionOnTrack& entry)
{
    return {Subject::Transition, TrackText(*entry.track), entry.transition->name,
            entry.transition->start};
}

// The clips themselves show whether there is one on either side.
std::string WithoutBlack(const std::string& alignment)
{
    return alignment.substr(0, alignment.find("-black"));
}

void CompareTransition(const ComparedSequences& sequences, const TransitionOnTrack& left,
                       const TransitionOnTrack& right, DifferenceList& differences)
{
    const ComparedSubject subject = SubjectOf(left);
    const TimecodeFormat& format = sequences.left.format;
    const Transition& a = *left.transition;
    const Transition& b = *right.transition;
    differences.CompareTimes(subject, "start", format, a.start, b.start, Change::Moved);
    differences.CompareTimes(subject, "end", format, a.end, b.end);
    differences.CompareTexts(subject, "name", a.name, b.name);
    differences.CompareTexts(subject, "alignment", WithoutBlack(a.alignment),
                             WithoutBlack(b.alignment));
    if (sequences.AreOfOneFamily())
        CompareParameters(subject, "", format, a.parameters, b.parameters, differences);
}

void CompareTransitions(const ComparedSequences& sequences, DifferenceList& differences)
{
    const std::vector<TransitionOnTrack> left = TransitionsOf(sequences.left);
    const std::vector<TransitionOnTrack> right = TransitionsOf(sequences.right);
    const auto trackOf = [](const TransitionOnTrack& entry) {
        return std::pair(entry.track->kind, entry.track->number);
    };
    Matching matching(left.size(), right.size());
    MatchBy(matching, left, right, [&](const TransitionOnTrack& entry) {
        return std::pair(trackOf(entry), entry.transition->start);
    });
    MatchBy(matching, left, right, [&](const TransitionOnTrack& entry) {
        return std::pair(trackOf(entry), std::string_view(entry.transition->name));
    });
    for (std::size_t i = 0; i < left.size(); ++i)
        if (matching.PartnerInB(i) == kNothing)
            differences.Add(SubjectOf(left[i]), Change::Lost);
        else
            CompareTransition(sequences, left[i], right[matching.PartnerInB(i)], differences);
    for (std::size_t i = 0; i < right.size(); ++i)
        if (matching.PartnerInA(i) == kNothing)
            differences.Add(SubjectOf(right[i]), Change::Added);
}

void CompareSequences(const ComparedSequences& sequences, std::vector<Difference>& found)
{
    DifferenceList differences(sequences.left, sequences.right, found);
    CompareSettings(sequences.left, sequences.right, differences);
    CompareTracks(sequences.left, sequences.right, differences);
    CompareItems(sequences, differences);
    CompareTransitions(sequences, differences);
}

Difference WholeSequence(Change change, const Sequence& sequence)
{
    return {.change = change,
            .sequence = sequence.name,
            .name = sequence.name,
            .timecode = sequence.format.Timecode(sequence.start)};
}

} // namespace

std::vector<Difference> Compare(const Project& a, const Project& b)
{
    std::vector<Difference> found;
    Matching matching(a.sequences.size(), b.sequences.size());
    MatchBy(matching, a.sequences, b.sequences,
            [](const Sequence& sequence) { return std::string_view(sequence.name); });
    // A renamed one has as many items and is as long as before.
    MatchBy(matching, a.sequences, b.sequences, [](const Sequence& sequence) {
        return std::pair(CountItems(sequence), sequence.Length());
    });
    for (std::size_t i = 0; i < a.sequences.size(); ++i)
        if (const std::size_t partner = matching.PartnerInB(i); partner == kNothing)
            found.push_back(WholeSequence(Change::Lost, a.sequences[i]));
        else
            CompareSequences({a, b, a.sequences[i], b.sequences[partner]}, found);
    for (std::size_t i = 0; i < b.sequences.size(); ++i)
        if (matching.PartnerInA(i) == kNothing)
            found.push_back(WholeSequence(Change::Added, b.sequences[i]));
    return found;
}

} // namespace XPJ::Inspection

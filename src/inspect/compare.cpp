#include "inspect/compare.h"

#include "inspect/compare_browser.h"
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

void CompareSettings(const ComparedSequences& sequences, const ComparedSubject& subject,
                     DifferenceList& differences)
{
    const Sequence& left = sequences.left;
    const Sequence& right = sequences.right;
    differences.CompareTexts(subject, Property::Name, left.name, right.name);
    if (left.format.ticks != right.format.ticks)
        differences.Add(subject, Change::Changed, Property::FrameLength,
                        TickText(left.format.ticks), TickText(right.format.ticks));
    differences.CompareSwitches(subject, Property::DropFrame, left.format.drop, right.format.drop);
    differences.CompareTimes(subject, Property::StartTimecode, left.format, left.start,
                             right.start);
    const auto frameText = [](const Sequence& sequence) {
        return fmt::format("{}x{}", sequence.width, sequence.height);
    };
    if (left.width > 0 && right.width > 0)
        differences.CompareTexts(subject, Property::FrameSize, frameText(left), frameText(right));
    CompareMarkers({.name = {}},
                   {left.markers, right.markers, left.format, sequences.AreOfOneFamily()},
                   differences);
}

void CompareTracks(const Sequence& left, const Sequence& right, DifferenceList& differences)
{
    Matching matching(left.tracks.size(), right.tracks.size());
    MatchBy(matching, left.tracks, right.tracks,
            [](const Track& track) { return std::pair(track.kind, track.number); });
    const auto subjectOf = [](const Track& track, std::size_t index, std::size_t other) {
        return ComparedSubject{.subject = Subject::Track,
                               .track = TrackText(track),
                               .name = track.name,
                               .leftItem = {index, kNothing},
                               .rightItem = {other, kNothing}};
    };
    for (std::size_t i = 0; i < left.tracks.size(); ++i) {
        const Track& track = left.tracks[i];
        const ComparedSubject subject = subjectOf(track, i, matching.PartnerInB(i));
        if (matching.PartnerInB(i) == kNothing) {
            if (!IsEmpty(track))
                differences.Add(subject, Change::Lost);
            continue;
        }
        const Track& other = right.tracks[matching.PartnerInB(i)];
        differences.CompareTexts(subject, Property::Name, track.name, other.name);
        differences.CompareSwitches(subject, Property::Enabled, track.enabled, other.enabled);
        differences.CompareSwitches(subject, Property::Locked, track.locked, other.locked);
    }
    for (std::size_t i = 0; i < right.tracks.size(); ++i)
        if (matching.PartnerInA(i) == kNothing && !IsEmpty(right.tracks[i]))
            differences.Add(subjectOf(right.tracks[i], kNothing, i), Change::Added);
}

struct TransitionOnTrack {
    std::size_t trackIndex;
    const Track* track;
    const Transition* transition;
};

std::vector<TransitionOnTrack> TransitionsOf(const Sequence& sequence)
{
    std::vector<TransitionOnTrack> transitions;
    for (std::size_t i = 0; i < sequence.tracks.size(); ++i)
        for (const Transition& transition : sequence.tracks[i].transitions)
            transitions.push_back({i, &sequence.tracks[i], &transition});
    return transitions;
}

ComparedSubject SubjectOf(const TransitionOnTrack& entry)
{
    return {.subject = Subject::Transition,
            .track = TrackText(*entry.track),
            .name = entry.transition->name,
            .time = entry.transition->start,
            .leftItem = {entry.trackIndex, kNothing},
            .rightItem = {entry.trackIndex, kNothing}};
}

// The clips themselves show whether there is one on either side.
std::string WithoutBlack(const std::string& alignment)
{
    return alignment.substr(0, alignment.find("-black"));
}

void CompareTransition(const ComparedSequences& sequences, const TransitionOnTrack& left,
                       const TransitionOnTrack& right, DifferenceList& differences)
{
    ComparedSubject subject = SubjectOf(left);
    subject.rightItem.track = right.trackIndex;
    const TimecodeFormat& format = sequences.left.format;
    const Transition& a = *left.transition;
    const Transition& b = *right.transition;
    differences.CompareTimes(subject, Property::Start, format, a.start, b.start, Change::Moved);
    differences.CompareTimes(subject, Property::End, format, a.end, b.end);
    differences.CompareTexts(subject, Property::Name, a.name, b.name);
    differences.CompareTexts(subject, Property::Alignment, WithoutBlack(a.alignment),
                             WithoutBlack(b.alignment));
    if (!sequences.AreOfOneFamily())
        return;
    const Effect effect{.kind = a.name, .parameters = a.parameters};
    const Effect other{.kind = b.name, .parameters = b.parameters};
    CompareParameters(subject, {effect, other, sequences.leftProject.family, format}, differences);
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

void CompareSequences(const ComparedSequences& sequences, const BrowserComparison& browser,
                      std::vector<Difference>& found)
{
    DifferenceList differences(sequences, found);
    const ComparedSubject subject{.name = sequences.left.name};
    browser.CompareSequenceEntries(IndexOf(sequences.leftProject, sequences.left),
                                   IndexOf(sequences.rightProject, sequences.right), subject,
                                   differences);
    CompareSettings(sequences, subject, differences);
    CompareTracks(sequences.left, sequences.right, differences);
    CompareItems(sequences, differences);
    CompareTransitions(sequences, differences);
}

Difference WholeSequence(Change change, const Project& project, std::size_t index)
{
    const Sequence& sequence = project.sequences[index];
    Difference difference{.change = change,
                          .sequence = sequence.name,
                          .name = sequence.name,
                          .timecode = sequence.format.Clock(sequence.start)};
    (change == Change::Added ? difference.second : difference.first).sequence = index;
    return difference;
}

} // namespace

std::vector<Difference> Compare(const Project& a, const Project& b)
{
    std::vector<Difference> found;
    const BrowserComparison browser(a, b);
    DifferenceList ofBrowser(found);
    browser.CompareEntries(ofBrowser);
    Matching matching(a.sequences.size(), b.sequences.size());
    MatchBy(matching, a.sequences, b.sequences,
            [](const Sequence& sequence) { return std::string_view(sequence.name); });
    // A renamed one has as many items and is as long as before.
    MatchBy(matching, a.sequences, b.sequences, [](const Sequence& sequence) {
        return std::pair(CountItems(sequence), sequence.Length());
    });
    for (std::size_t i = 0; i < a.sequences.size(); ++i)
        if (const std::size_t partner = matching.PartnerInB(i); partner != kNothing)
            CompareSequences({a, b, a.sequences[i], b.sequences[partner]}, browser, found);
        else if (!a.sequences[i].isSlug)
            found.push_back(WholeSequence(Change::Lost, a, i));
    for (std::size_t i = 0; i < b.sequences.size(); ++i)
        if (matching.PartnerInA(i) == kNothing && !b.sequences[i].isSlug)
            found.push_back(WholeSequence(Change::Added, b, i));
    return found;
}

} // namespace XPJ::Inspection

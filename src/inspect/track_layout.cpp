#include "inspect/track_layout.h"

#include <algorithm>
#include <functional>
#include <queue>
#include <set>
#include <utility>

namespace XPJ::Inspection {

namespace {

// Gives each item the first row that is free at its start; the items come sorted by start.
class RowAssignment {
public:
    std::size_t RowFor(Ticks start, Ticks end)
    {
        while (!busy_.empty() && busy_.top().first <= start) {
            free_.insert(busy_.top().second);
            busy_.pop();
        }
        const std::size_t row = free_.empty() ? count_++ : *free_.begin();
        free_.erase(row);
        busy_.emplace(end, row);
        return row;
    }

private:
    using Busy = std::pair<Ticks, std::size_t>; // until when, which row
    std::priority_queue<Busy, std::vector<Busy>, std::greater<>> busy_;
    std::set<std::size_t> free_;
    std::size_t count_ = 0;
};

void PlaceItems(const Track& track, TrackLayout& layout)
{
    RowAssignment assignment;
    layout.rows.resize(1);
    for (std::size_t i = 0; i < track.items.size(); ++i) {
        const Item& item = track.items[i];
        if (item.start < 0 || item.end < item.start) {
            layout.unplacedItems.push_back(i);
            continue;
        }
        const std::size_t number = assignment.RowFor(item.start, item.end);
        if (number == layout.rows.size())
            layout.rows.emplace_back();
        Row& row = layout.rows[number];
        const Ticks end = row.empty() ? 0 : row.back().end;
        if (item.start > end)
            row.push_back({.kind = SlotKind::Gap, .start = end, .end = item.start});
        row.push_back({.kind = SlotKind::Item, .index = i, .start = item.start, .end = item.end});
    }
}

// The point of a transition that its cut is nearest to.
Ticks StatedCut(const Transition& transition, Ticks start)
{
    if (transition.alignment.starts_with("start"))
        return start;
    if (transition.alignment.starts_with("end"))
        return transition.end;
    return start + (transition.end - start) / 2;
}

// The edges of a row's slots: one before each, and one after the last.
class Edges {
public:
    explicit Edges(const Row& row)
    {
        // That of a gap at the head is no edge of an item.
        first_ = !row.empty() && row.front().kind == SlotKind::Gap ? 1 : 0;
        for (const Slot& slot : row)
            times_.push_back(slot.start);
        if (!row.empty())
            times_.push_back(row.back().end);
    }

    // The edge within a transition that is nearest to its cut; kNothing without any.
    std::size_t EdgeOf(const Transition& transition) const
    {
        const Ticks start = std::max<Ticks>(transition.start, 0);
        const std::size_t from = std::max(FirstNotBefore(start), first_);
        if (transition.end < start || from >= times_.size() || times_[from] > transition.end)
            return kNothing;
        const Ticks cut = StatedCut(transition, start);
        const std::size_t next = FirstNotBefore(cut);
        if (next <= from)
            return from;
        const bool isNextIn = next < times_.size() && times_[next] <= transition.end;
        return isNextIn && times_[next] - cut < cut - times_[next - 1] ? next : next - 1;
    }

private:
    std::size_t FirstNotBefore(Ticks time) const
    {
        return static_cast<std::size_t>(std::ranges::lower_bound(times_, time) - times_.begin());
    }

    std::vector<Ticks> times_;
    std::size_t first_ = 0;
};

// Transitions get neighbors: gaps without a length at the head of the row and between two of them,
// at its end a gap for the time that they last on.
void InsertTransitions(const Track& track, Row& row, std::vector<std::size_t>& unplaced)
{
    const Edges edges(row);
    std::vector<std::vector<std::size_t>> atEdge(row.size() + 1);
    for (std::size_t i = 0; i < track.transitions.size(); ++i) {
        const std::size_t edge = edges.EdgeOf(track.transitions[i]);
        edge == kNothing ? unplaced.push_back(i) : atEdge[edge].push_back(i);
    }
    Row result;
    for (std::size_t edge = 0; edge <= row.size(); ++edge) {
        const Ticks cut = result.empty() ? 0 : result.back().end;
        Ticks last = cut;
        for (const std::size_t i : atEdge[edge]) {
            if (result.empty() || result.back().kind == SlotKind::Transition)
                result.push_back({.kind = SlotKind::Gap, .start = cut, .end = cut});
            last = track.transitions[i].end;
            result.push_back({.kind = SlotKind::Transition,
                              .index = i,
                              .start = std::max<Ticks>(track.transitions[i].start, 0),
                              .end = last,
                              .cut = cut});
        }
        if (edge < row.size())
            result.push_back(row[edge]);
        else if (!atEdge[edge].empty())
            result.push_back({.kind = SlotKind::Gap, .start = cut, .end = last});
    }
    row = std::move(result);
}

// Transitions end where their neighbors or, in these, other transitions do.
void LimitTransitions(Row& row)
{
    Ticks taken = 0; // end of the transition before
    for (std::size_t i = 1; i + 1 < row.size(); ++i) {
        Slot& slot = row[i];
        if (slot.kind != SlotKind::Transition)
            continue;
        slot.start = std::max({slot.start, row[i - 1].start, taken});
        slot.end = std::min(slot.end, row[i + 1].end);
        taken = slot.end;
    }
}

} // namespace

TrackLayout LayOut(const Track& track)
{
    TrackLayout layout;
    PlaceItems(track, layout);
    InsertTransitions(track, layout.rows.front(), layout.unplacedTransitions);
    LimitTransitions(layout.rows.front());
    return layout;
}

} // namespace XPJ::Inspection

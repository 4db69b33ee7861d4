// A track as rows in which every thing follows the one before it, for formats that state lengths
// instead of positions: empty time becomes gaps, a transition comes between what it joins, and
// items that overlap (of damaged documents) go into rows of their own.
//
//   items         |-- A --|-- B --|      |-- C --|
//   transitions          |==|
//   row           A  transition  B  gap  C
#pragma once

#include "inspect/timeline.h"

#include <cstddef>
#include <vector>

namespace XPJ::Inspection {

enum class SlotKind { Gap, Item, Transition };

// Times count from the first frame of the sequence.
struct Slot {
    SlotKind kind = SlotKind::Gap;
    std::size_t index = kNothing; // in Track::items or Track::transitions
    Ticks start = 0;
    Ticks end = 0;
    Ticks cut = 0; // of a transition: where its neighbors meet

    friend bool operator==(const Slot&, const Slot&) = default;
};

// Gaps and items of a row leave no time between them. A transition has one of them on each side,
// which may be an empty gap, and covers no more of it than other transitions leave.
using Row = std::vector<Slot>;

struct TrackLayout {
    // The track itself, then as many rows as needed for items that overlap those before them.
    std::vector<Row> rows;
    std::vector<std::size_t> unplacedItems;       // without a usable start and end
    std::vector<std::size_t> unplacedTransitions; // at no edge of an item
};

TrackLayout LayOut(const Track& track);

} // namespace XPJ::Inspection

// Comparison of the items of two sequences: which item of one is which of the other, and what
// differs between the two.
//
// Items are matched by track, start and name; the rest by name and in point, first on the same
// track, then on others of its type: such an item has moved. Of what is left, items with equal
// start and in point were renamed, and items with equal name and end were trimmed at their head.
#pragma once

#include "inspect/difference_list.h"
#include "inspect/timeline.h"

namespace XPJ::Inspection {

void CompareItems(const ComparedSequences& sequences, DifferenceList& differences);

} // namespace XPJ::Inspection

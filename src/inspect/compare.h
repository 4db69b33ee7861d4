// What differs between the timelines of two documents.
//
// Nothing is overlooked on purpose: an item that is one frame off is a difference. Identities
// (GUIDs, ids) don't count, nor does what only one of the two documents can state. Between
// documents of two families effects are compared by name alone, since each family has its own units
// for parameters. The browser is not compared. Sequences are matched by name and order;
// compare_items.h has the rules for items.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <vector>

namespace XPJ::Inspection {

// The differences from `a` to `b`, in the order of sequences and times. Takes n log n steps.
std::vector<Difference> Compare(const Project& a, const Project& b);

} // namespace XPJ::Inspection

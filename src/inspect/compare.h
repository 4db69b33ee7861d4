// What differs between two documents.
//
// Nothing is overlooked on purpose: an item that is one frame off is a difference. Identities
// (GUIDs, ids) don't count, nor does what only one of the two documents can state, nor an effect
// that does nothing. Between documents of two families effects are compared by their kind alone,
// since each family has its own units for parameters. Sequences are matched by name and order;
// compare_items.h, compare_browser.h and compare_parts.h have the rules for what is in them,
// neutral_effects.h those for values that are the same.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <vector>

namespace XPJ::Inspection {

// The differences from `a` to `b`: those of the browser, then in the order of sequences and times.
// Takes n log n steps.
std::vector<Difference> Compare(const Project& a, const Project& b);

} // namespace XPJ::Inspection

// What differs between the timelines of two documents.
//
// Nothing is overlooked on purpose: an item that lies a frame off is a difference. Only identities
// (GUIDs, ids) don't count, and nothing counts that just one of the two tells. Where the documents
// are of two families their effects are compared by name alone, since each family states parameters
// in units of its own. The browser is not compared.
//
// Sequences are matched by name and order. Items are matched on their track by start and name; what
// is left by name and in point, first on the same track, then on others of its kind: it has moved.
// What is left then and starts alike, at the same in point, was renamed; what is named and ends
// alike was trimmed at its head.
#pragma once

#include "inspect/timeline.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

enum class Change { Added, Lost, Moved, Changed };
enum class Subject { Sequence, Track, Item, Transition, Marker };

struct Difference {
    Change change = Change::Changed;
    Subject subject = Subject::Sequence;
    std::string sequence;
    std::string track = {}; // "V1"; empty for sequences and their markers
    std::string name = {};  // of the subject
    // Where the subject starts, in the first document, or the second for what was added.
    std::int64_t frame = 0;
    std::string timecode = {};
    // What of it differs, and its two values in words; empty for what was added or lost.
    std::string property = {};
    std::string before = {};
    std::string after = {};
};

// The differences from `a` to `b`, by sequence and place; empty when there are none. Takes n log n
// steps.
std::vector<Difference> Compare(const Project& a, const Project& b);

// "added", "lost", "moved", "changed"
std::string_view ChangeText(Change change);
// "sequence", "track", "clip", "transition", "marker"
std::string_view SubjectText(Subject subject);

} // namespace XPJ::Inspection

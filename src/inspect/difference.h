// One difference between the timelines of two documents.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

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
    // Which of its properties differs, and the two values; empty for what was added or lost.
    std::string property = {};
    std::string before = {};
    std::string after = {};
};

// "added", "lost", "moved", "changed"
std::string_view ChangeText(Change change);
// "sequence", "track", "clip", "transition", "marker"
std::string_view SubjectText(Subject subject);

} // namespace XPJ::Inspection

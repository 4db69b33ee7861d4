// Timelines as OpenTimelineIO JSON, for other programs; docs/otio.md states what goes where.
#pragma once

#include "inspect/timeline.h"

#include <cstddef>
#include <string>

namespace XPJ::Inspection {

struct OtioText {
    std::string json; // ends in a line feed; ill-formed UTF-8 is replaced
    // Of the timelines: what they nest doesn't count.
    std::size_t sequences = 0;
    std::size_t items = 0;
};

// A `Timeline` of the browser's only sequence, or a `SerializableCollection` of those of all
// sequences; of a browser without sequences that of its clips. `only`: in Project::sequences, the
// one sequence to be written.
OtioText WriteOtio(const Project& project, std::size_t only = kNothing);

} // namespace XPJ::Inspection

// Subclips: clips of a part of a longer clip.
#pragma once

#include "tree/object.h"
#include "xmeml/files.h"

#include <cstdint>

namespace XPJ {

// The part, in frames of the source; -1 where it isn't stated.
struct SubclipRange {
    std::int64_t start = -1;
    std::int64_t end = -1;
    std::int64_t tail = 0; // what follows the part
    bool hard = true;      // the host may not trim beyond it

    bool IsKnown() const { return start != -1 && end != -1; }
};

// Soft offsets win over `subclipinfo`; each is taken from a `clip` or `clipitem` itself, else from
// the first `clipitem` of its `media`. A `sequence` is no part of anything, whatever its items are.
SubclipRange ReadSubclipInfo(const FileCatalog& files, ConstHandle element);

} // namespace XPJ

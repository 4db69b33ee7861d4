// The Time Remap of an item that doesn't play its source plainly.
#pragma once

#include "export/item_times.h"
#include "project/accessors.h"

#include <string_view>

namespace XPJ::RVX {

// `item` has its `in` and `out` already. `keyframes` is the project's list of speed keyframes,
// empty for a constant speed.
void ExportTimeRemap(Document& document, const ItemTiming& timing, std::string_view keyframes,
                     MediaType kind, ObjectHandle item);

} // namespace XPJ::RVX

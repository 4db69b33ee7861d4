// Trees of either family as the plain timelines of timeline.h.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ::Inspection {

// `root` is an `xmeml` or a `VelaData` node, as a reader or a translation makes it. Relative paths
// of media count from `folder`, which has its last separator. `isHandOff`: the audio editor wrote
// the document. Takes any tree: what leads nowhere, or back to itself, is skipped.
//
// Edges that an XML document leaves to its transitions are written into its tree: to be called once
// for a tree, and not before an import of it.
Project TimelinesOfTree(ConstHandle root, std::string_view folder = {}, bool isHandOff = false);

// Of one family each.
Project ReadXmemlTimelines(ConstHandle xmeml, std::string_view folder, bool isHandOff);
Project ReadProjectTimelines(ConstHandle velaData);

} // namespace XPJ::Inspection

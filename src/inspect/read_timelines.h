// Trees of either family as the plain timelines of timeline.h.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

// `root` is an `xmeml` or a `VelaData` node, as a reader or a translation makes it. Relative paths
// of media count from `folder`, which has its last separator. `isHandOff`: the audio editor wrote
// the document. Takes any tree: what leads nowhere, or back to itself, is skipped.
Project TimelinesOfTree(ConstHandle root, std::string_view folder = {}, bool isHandOff = false);

// A sequence of a tree, and what it can be chosen by.
struct ListedSequence {
    std::string name;
    std::string id; // see Sequence::id
    ConstHandle node;
};
// Those of `TimelinesOfTree`, in its order.
std::vector<ListedSequence> ListSequences(ConstHandle root);

// Of one family each. `nodes` gets those of the project's sequences, in their order.
Project ReadXmemlTimelines(ConstHandle xmeml, std::string_view folder, bool isHandOff,
                           std::vector<ConstHandle>& nodes);
Project ReadProjectTimelines(ConstHandle velaData, std::vector<ConstHandle>& nodes);

} // namespace XPJ::Inspection

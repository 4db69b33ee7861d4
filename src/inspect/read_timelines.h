// Trees of either family as the plain timelines of timeline.h.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

struct TreeReading {
    std::string_view folder = {}; // base of relative paths of media, with its last separator
    bool isHandOff = false;       // the audio editor wrote the document
    bool openInterchange = false; // the items of an `xmeml` are taken as other programs mean them
};

// `root` is an `xmeml` or a `VelaData` node, as a reader or a translation makes it. Takes any tree:
// what leads nowhere, or back to itself, is skipped.
Project TimelinesOfTree(ConstHandle root, const TreeReading& reading = {});

// A sequence of a tree, and what it can be chosen by.
struct ListedSequence {
    std::string name;
    std::string id; // see Sequence::id
    ConstHandle node;
};
// Those of `TimelinesOfTree`, in its order.
std::vector<ListedSequence> ListSequences(ConstHandle root);

// Of one family each. `nodes` gets those of the project's sequences, in their order.
Project ReadXmemlTimelines(ConstHandle xmeml, const TreeReading& reading,
                           std::vector<ConstHandle>& nodes);
Project ReadProjectTimelines(ConstHandle velaData, std::vector<ConstHandle>& nodes);

} // namespace XPJ::Inspection

// The one sequence of a document that a conversion is limited to.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

struct SequenceChoice {
    ConstHandle sequence; // null: none could be chosen
    std::string problem;  // why not, "it holds no sequence Cut"
};

// By its name, by its id (the GUID of a project's sequence, the `uuid` or `id` of another), or by
// its number among those that an inspection lists, from 1. A name goes before a number; a name that
// several have chooses none. `root` is a tree of either family.
SequenceChoice ChooseSequence(ConstHandle root, std::string_view wanted);

// The same among sequences that were read.
struct ListedChoice {
    std::size_t index = Inspection::kNothing; // in the list
    std::string problem;
};
ListedChoice ChooseListed(const std::vector<Inspection::Sequence>& sequences,
                          std::string_view wanted);

// Takes everything else out of the tree of an `xmeml` document; what the sequence refers to stays
// in its items.
void KeepOnlySequence(ObjectHandle xmeml, ConstHandle sequence);

} // namespace XPJ

// What a diagnostic shows of a node.
#pragma once

#include "tree/object.h"

#include <iosfwd>

namespace XPJ {

// The names of the node's children and its properties sorted by name; "NULL object" for a null
// handle. At most 64 of either, so that many diagnostics about one large node stay cheap.
void DumpNode(std::ostream& output, ObjectHandle node);

} // namespace XPJ

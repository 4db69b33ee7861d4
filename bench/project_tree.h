// Makes project trees of the kind that the import gives, so that the writer is measured by itself.
#pragma once

#include "tree/object.h"

#include <cstddef>

namespace XPJ::Bench {

// A node with a `Project` of master clips and one sequence, whose text is about `bytes` long.
ObjectHandle MakeProjectTree(Document& document, std::size_t bytes);

} // namespace XPJ::Bench

// Tree to text of a project document.
//
// Values are written as they are in the tree, which holds entity-escaped text. The stream is
// flushed at the end; its errors are the caller's to look at.
#pragma once

#include "core/progress.h"
#include "tree/object.h"
#include "tree/writing.h"

#include <iosfwd>

namespace XPJ {

// Writes the `Project` child of `document` and all that it leads to as a project document.
// Throws std::logic_error where a reference that must have a target has none.
int WriteProjectDocument(ObjectHandle document, Progress& progress, std::ostream& output,
                         bool sn2vlMode);

} // namespace XPJ

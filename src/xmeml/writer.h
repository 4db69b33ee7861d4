// Tree to text of an `xmeml` document.
//
// Values are written as they are in the tree, which holds entity-escaped text. The stream is
// flushed at the end; its errors are the caller's to look at.
#pragma once

#include "core/progress.h"
#include "tree/object.h"
#include "tree/writing.h"

#include <iosfwd>

namespace XPJ {

// Writes the `project` or `sequence` children of `root` as an `xmeml` document of version 4.
// `vl2snMode` adds the import options of the audio hand-off; without `additions` nothing is written
// that the document type doesn't have.
int WriteFCPXML(ObjectHandle root, Progress& progress, bool vl2snMode, std::ostream& output,
                bool additions = true);

} // namespace XPJ

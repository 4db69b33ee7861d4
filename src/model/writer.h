// The two writers: tree to text. Values are written as they stand in the tree, which holds
// entity-escaped text. Both flush the stream at the end; stream errors are the caller's to look at.
#pragma once

#include "core/progress.h"
#include "model/object.h"

#include <iosfwd>

namespace XPJ {

enum WriteResult : int {
    kWriteDone = 0,
    kWriteCancelled = -2,
};

// Writes the `project` child of `root` as an `xmeml` document of version 4.
// `vl2snMode` adds the import options of the audio hand-off.
int WriteFCPXML(ObjectHandle root, Progress& progress, bool vl2snMode, std::ostream& output);

// Writes the `Project` child of `document` and all that it leads to as a project document.
// Throws std::logic_error where a reference that must have a target has none.
int WriteProjectDocument(ObjectHandle document, Progress& progress, std::ostream& output,
                         bool sn2vlMode);

// Stores bytes as base64 under `dataKey` and their checksum in decimal under `checksumKey`; does
// nothing for no bytes.
void SetEncodedBlob(ObjectHandle node, Name dataKey, Name checksumKey, std::string_view bytes);

} // namespace XPJ

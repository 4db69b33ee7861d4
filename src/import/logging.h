// The descriptive layer of clips: logging fields, comments, labels, the good flag.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

namespace XPJ {

// A new ClipLoggingInfo for a `clip`, `clipitem` or `sequence`.
ObjectHandle MakeLoggingInfo(const ImportState& state, ObjectHandle element);

// The one for clips that no element stands behind.
ObjectHandle MakeDefaultLoggingInfo(Document& document);

// Copies the `comments` of an element to a project item; present values are replaced.
void CopyComments(ObjectHandle element, ObjectHandle target);

// Copies `good` of the `logginginfo`, in lower case.
void CopyGoodFlag(ObjectHandle element, ObjectHandle target);

// Puts the key of the colour in `labels` under `key`; unknown colours write nothing.
void CopyLabel(ObjectHandle element, ObjectHandle target, Name key);
// The label of a ClipProjectItem: that of the metadata of the clip's first file wins.
void CopyItemLabel(const ImportState& state, ObjectHandle element, ObjectHandle item);

} // namespace XPJ

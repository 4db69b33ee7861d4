// Descriptions of clips: logging fields, comments, labels, the good flag.
#pragma once

#include "import/import_state.h"
#include "project/labels.h"
#include "tree/object.h"
#include "xmeml/files.h"

namespace XPJ {

// A new ClipLoggingInfo for a `clip`, `clipitem` or `sequence`.
// In open interchange length and start of its media are the file's own.
ObjectHandle MakeLoggingInfo(const ImportState& state, ConstHandle element);

// The one for clips without an element.
ObjectHandle MakeDefaultLoggingInfo(Document& document);

// Copies the `comments` of an element to a project item; present values are replaced.
void CopyComments(ConstHandle element, ObjectHandle target);

// Copies `good` of the `logginginfo`, in lower case.
void CopyGoodFlag(ConstHandle element, ObjectHandle target);

// On descriptions that an element states otherwise than the one of which its master was built, and
// on the markers of a `clip`.
void RemarkOnSharedMaster(ImportState& state, ConstHandle element, ConstHandle master,
                          const ItemLocation& location);

// Copies the label of an element. To the letter a label is one of the host's colors, by its name;
// others write nothing. False for a label that is lost.
bool CopyLabel(const ImportState& state, ConstHandle element, ObjectHandle target,
               const LabelKeys& keys);
// On a label that is lost, once.
void RemarkOnLabel(ImportState& state, ConstHandle element, const ItemLocation& location);
// The label of a ClipProjectItem: that of the metadata of the clip's first file wins.
void CopyItemLabel(ImportState& state, ConstHandle element, ObjectHandle item);

} // namespace XPJ

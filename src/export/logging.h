// What users record about clips: logging and film data, comments, labels.
#pragma once

#include "export/catalogs.h"

namespace XPJ::RVX {

// Adds `logginginfo` and `filmdata` to an element that shows the master, and completes the
// timecode of its `file`, which may be null.
void TranslateLoggingInfo(Document& document, MasterClip masterClip, FileRecord* file,
                          ObjectHandle element);

// Adds `labels` for a label of the browser; one that the table doesn't know leaves them empty.
// False without a label.
bool WriteItemLabel(Document& document, ConstHandle itemProperties, ObjectHandle element);
// The same for the label of a clip.
bool WriteClipLabel(Document& document, ConstHandle clipProperties, ObjectHandle element);
// Adds `comments` if the item of the browser has any comment.
void WriteComments(Document& document, ConstHandle itemProperties, ObjectHandle element);

} // namespace XPJ::RVX

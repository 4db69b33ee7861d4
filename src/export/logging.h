// What users record about clips: logging and film data, comments, labels.
#pragma once

#include "export/catalogs.h"
#include "project/labels.h"

namespace XPJ::RVX {

// Adds `logginginfo` and `filmdata` to an element that shows the master, and completes the
// timecode of its `file`, which may be null.
void TranslateLoggingInfo(Document& document, MasterClip masterClip, FileRecord* file,
                          ObjectHandle element);

// Adds `labels`; a color that the host doesn't have leaves them empty. To the letter a label is the
// name of its color. False without a label.
bool WriteLabel(ExportContext& context, ConstHandle properties, const LabelKeys& keys,
                ObjectHandle element);
// A remark about a label that is lost, or has another name now.
void ReportLabel(ExportContext& context, ConstHandle properties, const LabelKeys& keys,
                 const ItemLocation& location);

// Adds `comments` if the item of the browser has any comment.
void WriteComments(Document& document, ConstHandle itemProperties, ObjectHandle element);

// Adds the mark of a good take to the `logginginfo` of a `clip`.
void WriteGoodFlag(Document& document, ConstHandle itemProperties, ObjectHandle clip);

} // namespace XPJ::RVX

// Labels and comments of the user.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Attaches `labels` for a label of the browser; one that the table doesn't know leaves them empty.
void WriteItemLabel(ExportContext& context, ConstHandle itemProperties, ObjectHandle element);
// The same for the label of a clip, unless the element has `labels`.
void WriteClipLabel(ExportContext& context, ConstHandle clipProperties, ObjectHandle element);
// Attaches `comments` if the item has any comment.
void WriteComments(ExportContext& context, ConstHandle itemProperties, ObjectHandle element);

} // namespace XPJ::RVX

// Logging and film notes of a master clip.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Attaches `logginginfo` and `filmdata` to an element that shows the master, and completes the
// timecode of its `file`, which may be null.
void TranslateLoggingInfo(ExportContext& context, ConstHandle masterClip, ObjectHandle file,
                          ObjectHandle element);

} // namespace XPJ::RVX

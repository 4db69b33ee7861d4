// Clip items of the browser: clips of media, and sequences.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Adds the `clip` or `sequence` of a ClipProjectItem to a `children` element.
void TranslateMasterClip(ExportContext& context, ObjectHandle clipItem, ObjectHandle children);

} // namespace XPJ::RVX

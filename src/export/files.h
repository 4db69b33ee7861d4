// `file` elements. A medium is written in full where it is first used and referred to from then on.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Gives an element the `file` of a medium, as a child or as the reference `fileid`, and gives that
// `file`. A clip item without `rate` of its own should take that of the file.
ObjectHandle FileFor(ExportContext& context, ObjectHandle element, ConstHandle medium,
                     ConstHandle masterClip);

} // namespace XPJ::RVX

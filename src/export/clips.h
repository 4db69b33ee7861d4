// Clip items of the browser: clips of media, and sequences.
#pragma once

#include "export/catalogs.h"

namespace XPJ::RVX {

// Adds the `clip` or `sequence` of a ClipProjectItem to a `children` element, or a reference to a
// sequence that is written already. A master without media or sequence, a color matte and a
// graphic add nothing.
void TranslateBrowserClip(ExportContext& context, Catalogs& catalogs, const BrowserClip& clip,
                          ObjectHandle children);

} // namespace XPJ::RVX

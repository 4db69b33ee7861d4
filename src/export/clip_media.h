// The `media` of a `clip`: an item for its picture and one for each channel of its sound.
#pragma once

#include "export/export_context.h"
#include "export/media.h"

namespace XPJ::RVX {

// A `media`, empty for captions. `file` becomes the file it shows, null if it shows none.
ObjectHandle TranslateClipMedia(ExportContext& context, ConstHandle masterClip,
                                const MasterMedia& media, ObjectHandle& file);

// A `clipitem` of a `clip`, with the file of `medium` and its rate.
ObjectHandle NewClipItem(ExportContext& context, ConstHandle masterClip, ConstHandle medium);

} // namespace XPJ::RVX

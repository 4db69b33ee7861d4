// The browser's tree on export: bins, and the items in them.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// Notes the first item of each master clip, for those who meet a master on a track.
void CollectProjectItems(ExportContext& context, ConstHandle rootItem);

// Translates what `rootItem` holds into a `children` element. With a sequence's GUID only the first
// item that shows it is translated, without the bins around it. False when nothing was.
bool TranslateItems(ExportContext& context, ConstHandle rootItem, const Guid& sequenceGuid,
                    ObjectHandle children);

} // namespace XPJ::RVX

// The browser's tree: bins, and the items in them.
#pragma once

#include "export/catalogs.h"

namespace XPJ::RVX {

// Lists the items of the browser with the masters that they show, for those who meet a master on a
// track. Paths of bins are stored in `document`.
void CollectBrowserItems(Document& document, ConstHandle rootItem, MasterCatalog& masters);

// Translates what `rootItem` holds into a `children` element. Where the options choose a sequence,
// only the first item that shows it is translated, without the bins around it. False when nothing
// was.
bool TranslateItems(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                    ObjectHandle children);

} // namespace XPJ::RVX

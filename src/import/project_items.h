// ClipProjectItem: what shows a master clip or a sequence in a bin.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Adds a new item for a `clip`, `clipitem`, `generatoritem` or `sequence` to `parentItem`. Null
// `element`: black video.
ObjectHandle MakeClipProjectItem(ImportState& state, ConstHandle element, MasterClipHandle master,
                                 ObjectHandle parentItem);

// Adds the item of a browser `clip`, whose name the master takes. The item of a part of a merged
// clip is deferred until the merge pass knows whether there will be one.
void AddClipItem(ImportState& state, ConstHandle clip, MasterClipHandle master,
                 ObjectHandle parentItem);

// Makes the items that were deferred under a merge id, in their bins, but for those of masters in
// `merged`.
void AddDeferredItems(ImportState& state, std::string_view mergeId, const NodeSet& merged);

} // namespace XPJ

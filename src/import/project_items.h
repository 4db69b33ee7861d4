// ClipProjectItem: what shows a master clip or a sequence in a bin.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Adds a new item for a `clip`, `clipitem`, `generatoritem` or `sequence` to `parentItem`.
ObjectHandle MakeClipProjectItem(ImportState& state, ObjectHandle element, ObjectHandle master,
                                 ObjectHandle parentItem);

// Adds the item of a browser `clip`, whose name the master takes. The item of a part of a merged
// clip is held back until the merge pass knows whether there will be one.
void AddClipItem(ImportState& state, ObjectHandle clip, ObjectHandle master,
                 std::string_view fileId, ObjectHandle parentItem);

// Makes the items that were held back under a merge id, in their bins, but for those of masters
// that have become parts of a merged clip.
void PlaceHeldBackItems(ImportState& state, std::string_view mergeId);

// What a clip shares with others of one merged clip: its `masterclipid`, else its `id`.
std::string_view MergeIdOf(ObjectHandle clip);

} // namespace XPJ

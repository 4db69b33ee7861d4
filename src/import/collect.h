// The first pass of an import: what later passes look up by id is found before anything is
// translated, since documents refer forwards and across bins.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Fills the maps of `state` from the tree under `project`. `file`s without an id and `sequence`s
// without an id get one. False when cancelled.
bool CollectReferences(ImportState& state, ObjectHandle project);

} // namespace XPJ

// The first pass of an import: what later passes look up by id is found before anything is
// translated, since documents refer forwards and across bins.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// Frequent elements that are passed over: they hold nothing that is collected.
constexpr Name kPassedOver[] = {
    "comments",    "filmdata", "labels", "link",
    "logginginfo", "marker",   "rate",   "samplecharacteristics",
    "sourcetrack", "timecode",
};

// Fills the catalogs from the tree under `project`. `file`s and `sequence`s without an id get one
// in their catalogs. False when cancelled.
bool CollectReferences(ImportState& state, ConstHandle project);

} // namespace XPJ

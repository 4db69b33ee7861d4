// Findings at a place in a timeline.
#pragma once

#include "effects/effect_context.h"
#include "import/import_state.h"
#include "import/item_times.h"

namespace XPJ {

// The place of an item that starts at a frame of a `sequence`. `trackIndex` counts from 0.
ItemPlace PlaceOfItem(const ImportState& state, ObjectHandle sequence, ObjectHandle item,
                      MediaType type, int trackIndex, Frames start);

void AddItemIssue(ImportState& state, const ItemPlace& place, ImportIssue kind,
                  std::string_view subject = {});

} // namespace XPJ

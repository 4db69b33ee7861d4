// Multiclips: several angles of one event behind one clip.
#pragma once

#include "import/import_state.h"

namespace XPJ {

// The `multiclip` of a clip or track item: its own child, else that of the first item on the first
// track of its `media`, picture before sound. Null if there is none.
ObjectHandle FindMulticlip(ObjectHandle element);

// The number of the active angle, from 1.
int ActiveAngle(const ImportState& state, ObjectHandle multiclip);

// The `clip` of the active angle; null if it has none.
ObjectHandle ActiveClip(const ImportState& state, ObjectHandle multiclip);

// A collapsed multiclip, the usual kind, counts as the clip of its active angle.
bool IsCollapsed(ObjectHandle multiclip);

// Notes the active angle of a `multiclip`, and enters the master of an uncollapsed one.
void CollectMulticlip(ImportState& state, ObjectHandle multiclip);

// Makes the project item of an element whose `multiclip` is not collapsed.
void TranslateMulticlipItem(ImportState& state, ObjectHandle element, ObjectHandle parentItem);

} // namespace XPJ

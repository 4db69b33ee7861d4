// What translators of effects are told of a track item or a master, and the picture effects that
// hang on them.
#pragma once

#include "effects/effect_context.h"
#include "xmeml/item_times.h"
#include "import/tracks.h"
#include "tree/object.h"

namespace XPJ {

// For an item that starts at a frame of its sequence, on a track of either type. `master` is the
// MasterClip that it shows. `frameTicks` is 0 for a picture whose rate nobody states; sound then
// counts in the sequence's frames.
EffectContext ContextOfItem(const TrackContext& track, ObjectHandle item, ObjectHandle master,
                            Frames start);

// The VideoComponentChain of a picture item; a variable speed goes to the clip of its `subClip`.
ObjectHandle MakeItemVideoChain(const TrackContext& track, ObjectHandle item, Frames start,
                                ObjectHandle subClip);

// Hangs the filters of a browser `clip` and of its `file` on a new master.
void AddMasterEffects(ImportState& state, ObjectHandle element, ObjectHandle file,
                      ObjectHandle master);

} // namespace XPJ

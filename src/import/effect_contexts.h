// What translators of effects need to know of a track item or a master.
#pragma once

#include "effects/effect_context.h"
#include "import/import.h"
#include "import/track_context.h"
#include "xmeml/item_times.h"

namespace XPJ {

// For an item on a track of either type that starts at a frame of its sequence. `master` is the
// MasterClip that it shows. `frameTicks` is 0 for video whose rate is stated nowhere; audio then
// counts in the sequence's frames.
EffectContext ContextOfItem(const TrackContext& track, const ClipItem& item, BuiltMaster master,
                            Frames start);

// Adds the filters of a browser `clip` and of its `file` to a new master.
void AddMasterEffects(Import& import, ConstHandle element, FileElement file, BuiltMaster master);

} // namespace XPJ

// Titles and shapes that become graphics: media that the host draws an effect on, which belongs to
// the track item or to the master clip.
#pragma once

#include "effects/effect_context.h"
#include "import/import_state.h"
#include "tree/object.h"

namespace XPJ {

// Shapes always become graphics, text generators by the setting. A generator without an effect is
// what another one of its clip was registered as.
bool IsGraphicTitle(const ImportState& state, ObjectHandle generator);

// Keeps a generator for other items of its clip that state no words of their own.
void RegisterTitle(ImportState& state, ObjectHandle generator);

// Gives a master the effect of a generator; the track items of the master have none then. `frame`
// is that of the sequence or clip around the generator.
void AddTitleToMaster(ImportState& state, ObjectHandle generator, const FrameSize& frame,
                      ObjectHandle master);
bool HasTitle(const ImportState& state, ObjectHandle master);

// The effect that a track item of `master` has for its title, new in the project's document; null
// for what is no graphic title.
ObjectHandle TitleOfItem(const ImportState& state, ObjectHandle item, const FrameSize& frame,
                         ObjectHandle master);

} // namespace XPJ

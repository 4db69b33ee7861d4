// The pan of a clip between the two channels of its track.
#pragma once

#include "effects/audio_chain.h"
#include "effects/effect_context.h"
#include "tree/object.h"

namespace XPJ {

// The AudioComponentParam for the panner of an item; null for an item without a pan, and for one
// whose pan lacks its parameter, which is reported. Left is 0, right is 1.
ObjectHandle TranslatePan(const EffectContext& context, const ItemAudio& audio, ConstHandle item);

// Puts the pan of a panner's processor on an item: a `filter`, and the project's own fields.
void PanToXmeml(const EffectContext& context, ConstHandle processor, ObjectHandle item);

} // namespace XPJ

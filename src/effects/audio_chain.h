// The chain of audio effects of a clip: its volume, then its filters.
#pragma once

#include "effects/audio_filters.h"
#include "effects/effect_context.h"
#include "tree/object.h"

namespace XPJ {

// A new AudioComponentChain from the `filter`s of an item. The volume of the clip, which every clip
// has, is first with `ID` 1; further levels and the filters follow in document order.
ObjectHandle BuildAudioChain(const EffectContext& context, const ItemAudio& audio,
                             ConstHandle item);

} // namespace XPJ

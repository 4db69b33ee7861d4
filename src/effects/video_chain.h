// The chain of picture effects on a track item or a master: walks the filters in document order and
// gives each to its translator.
#pragma once

#include "effects/effect_context.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// A new VideoComponentChain for a `clipitem` or `generatoritem`. Opacity comes first with `ID` 2,
// Motion second with `ID` 1, where there is need of them; the filters follow from `ID` 3 on. A
// variable speed becomes the TimeRemapping of the clip of `subClip`. Without a rate
// (`context.frameTicks` 0) nothing of the item is read. `title` is an effect that the item has
// before those of its filters; may be null.
ObjectHandle BuildSequenceChain(const EffectContext& context, ObjectHandle item,
                                ObjectHandle subClip, std::string_view sequenceId,
                                ObjectHandle title = {});

// Appends the filters of a `clip` or `file` to the VideoComponentChain of a master, numbered on
// from its `NextComponentID`. A master has no opacity, motion and speed.
void AddMasterChainEffects(const EffectContext& context, ObjectHandle owner, ObjectHandle chain);
// Appends one effect.
void AddMasterChainEffect(const EffectContext& context, ObjectHandle effect, ObjectHandle chain);

} // namespace XPJ

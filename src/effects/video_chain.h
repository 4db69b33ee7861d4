// The chain of video effects of a track item or a master: walks the filters in document order and
// gives each to its translator, and the other way round.
#pragma once

#include "effects/effect_context.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// A new VideoComponentChain for a `clipitem` or `generatoritem`. Opacity comes first with `ID` 2,
// Motion second with `ID` 1, where they change something; the filters follow from `ID` 3 on. A
// variable speed becomes the TimeRemapping of the clip of `subClip`. Without a rate
// (`context.frameTicks` 0) nothing of the item is read. `title` is an effect that the item has
// before those of its filters; may be null.
ObjectHandle BuildSequenceChain(const EffectContext& context, ConstHandle item,
                                ObjectHandle subClip, std::string_view sequenceId,
                                ConstHandle title = {});

// Appends the filters of a `clip` or `file` to the VideoComponentChain of a master, numbered on
// from its `NextComponentID`. A master has no opacity, motion and speed.
void AddMasterChainEffects(const EffectContext& context, ConstHandle owner, ObjectHandle chain);
// Appends one effect.
void AddMasterChainEffect(const EffectContext& context, ConstHandle effect, ObjectHandle chain);

// Motion, opacity with composite mode and the filters of a track item, in the order of documents.
void VideoChainToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle item);

} // namespace XPJ

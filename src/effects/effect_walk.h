// The effects that act on an item, a track or a media file, by their `filter`s.
#pragma once

#include "tree/object.h"

namespace XPJ {

// The `effect` of a `filter`; null if the filter is off without being kept as a bypassed one, or if
// its effect states neither its name nor its id, as that of a clip with a plain gain.
ConstHandle ActiveEffect(ConstHandle filter);

// Calls `use(effect)` for each active effect, in document order.
template <typename Use>
void ForEachEffect(ConstHandle owner, const Use& use)
{
    for (const ConstHandle filter : owner.GetChildren("filter"))
        if (const ConstHandle effect = ActiveEffect(filter))
            use(effect);
}

} // namespace XPJ

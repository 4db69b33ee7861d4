// The effects that act on an item, a track or a medium, by their `filter`s.
#pragma once

#include "tree/object.h"

namespace XPJ {

// The `effect` of a `filter`; null if the filter is off, or if its effect says neither its name nor
// its id, as that of a clip with a plain gain.
ObjectHandle ActiveEffect(ObjectHandle filter);

// Calls `use(effect)` for each active effect, in document order.
template <typename Use>
void ForEachEffect(ObjectHandle owner, const Use& use)
{
    for (const ObjectHandle& filter : owner.GetChildren("filter"))
        if (const ObjectHandle effect = ActiveEffect(filter))
            use(effect);
}

} // namespace XPJ

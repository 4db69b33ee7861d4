#include "effects/effect_walk.h"

#include "core/text.h"
#include "effects/parameters.h"

namespace XPJ {

ObjectHandle ActiveEffect(ObjectHandle filter)
{
    const ObjectHandle effect = filter.GetChild("effect");
    const bool isOff = EqualsIgnoreCase(filter.GetProperty("enabled"), "false");
    return isOff || EffectName(effect).empty() ? ObjectHandle() : effect;
}

} // namespace XPJ

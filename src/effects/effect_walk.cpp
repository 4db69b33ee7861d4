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

ObjectHandle FindEffect(ObjectHandle owner, std::string_view effectId)
{
    for (const ObjectHandle& filter : owner.GetChildren("filter"))
        if (const ObjectHandle effect = ActiveEffect(filter);
            effect && effect.GetProperty("effectid") == effectId)
            return effect;
    return {};
}

} // namespace XPJ

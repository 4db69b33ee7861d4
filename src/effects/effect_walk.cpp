#include "effects/effect_walk.h"

#include "core/text.h"
#include "effects/parameters.h"

namespace XPJ {

ConstHandle ActiveEffect(ConstHandle filter)
{
    const ConstHandle effect = filter.GetChild("effect");
    const bool isOff =
        EqualsIgnoreCase(filter.GetProperty("enabled"), "false") && !IsTrue(effect, "velaBypass");
    return isOff || EffectName(effect).empty() ? ConstHandle() : effect;
}

} // namespace XPJ

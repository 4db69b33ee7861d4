#include "effects/basic_3d.h"

#include "core/numbers.h"
#include "effects/values.h"

#include <algorithm>

namespace XPJ {

namespace {

bool Turns(ConstHandle effect, std::string_view id)
{
    const ConstHandle parameter = FindParameter(effect, id);
    return HasKeyframes(parameter) || ParseDouble(PlainValue(parameter)) != 0;
}

} // namespace

Basic3D TranslateBasic3D(const EffectContext& context, ConstHandle effect)
{
    Basic3D result;
    for (const std::string_view id : {"s", "center", "rz"})
        result.isMotionSource |= static_cast<bool>(FindParameter(effect, id));
    Components components;
    if (Turns(effect, "rx") || Turns(effect, "ry")) {
        ParamsToProject(context, kBasic3D, effect, components);
        result.component = components.front();
    }
    return result;
}

} // namespace XPJ

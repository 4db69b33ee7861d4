#include "effects/keys_and_blur.h"

#include "core/numbers.h"
#include "effects/values.h"

#include <algorithm>
#include <cmath>

namespace XPJ {

bool GaussianBlurToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                           Components& components)
{
    constexpr int kAllChannels = 1; // the first choice of the effect
    return ParseInt(StaticValue(FindParameter(effect, "channel"), "0")) == kAllChannels &&
           ParamsToProject(context, row, effect, components);
}

double LumaThreshold(double percent)
{
    constexpr double kBend = 0.75;
    return std::pow(std::max(percent, 0.0) / 100, kBend) * 200 - 100;
}

} // namespace XPJ

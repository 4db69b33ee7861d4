// Effects of documents and their parameters, for rules that restate them.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

// An effect of documents, by its `effectid`; one that states none by its name.
struct EffectKey {
    std::string_view id;
    std::string_view name;

    bool Matches(ConstHandle effect) const
    {
        const std::string_view stated = effect.GetProperty("effectid");
        return stated.empty() ? effect.GetProperty("name") == name : stated == id;
    }
};

inline constexpr EffectKey kPanEffect = {"audiopan", "Audio Pan"};
inline constexpr EffectKey kGainEffect = {"{61756678, 4761696e, 4b657947}", "Gain"};

// Calls `use(parameter)` for every `parameter` of an effect that has the id.
template <typename Use>
void ForEachParameter(ObjectHandle effect, std::string_view parameterId, const Use& use)
{
    for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("parameterid") == parameterId)
            use(parameter);
}

} // namespace XPJ

#include "effects/effect_list.h"

#include "effects/motion.h"
#include "effects/opacity.h"
#include "effects/time_remap.h"

namespace XPJ {

std::string_view OutcomeText(Outcome outcome)
{
    switch (outcome) {
    case Outcome::CarriedOver:
        return "carried over";
    case Outcome::Approximated:
        return "approximated";
    case Outcome::Dropped:
        break;
    }
    return "dropped";
}

void AppendIntrinsicEffects(std::vector<EffectListing>& list)
{
    list.push_back(ListOpacity());
    list.push_back(ListMotion());
    list.push_back({.family = "Intrinsic",
                    .name = "Distort",
                    .effectId = "deformation",
                    .outcome = Outcome::Approximated,
                    .parameters = {{"Aspect", false}},
                    .note = "the aspect goes to the scales of Motion; moved corners are dropped"});
    list.push_back(ListTimeRemap());
}

std::vector<EffectListing> ListEffects()
{
    std::vector<EffectListing> list;
    AppendIntrinsicEffects(list);
    AppendVideoFilters(list);
    AppendTransitions(list);
    AppendTitles(list);
    AppendAudioEffects(list);
    return list;
}

} // namespace XPJ

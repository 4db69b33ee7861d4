#include "dialects/pass.h"

#include <algorithm>

namespace XPJ {

void DialectPass::Run(std::span<const DialectRule> rules)
{
    const auto isOfEffects = [](const DialectRule& rule) { return rule.applyToEffect != nullptr; };
    for (auto rule = rules.begin(); rule != rules.end();) {
        const auto next = std::find_if_not(rule, rules.end(), isOfEffects);
        if (rule != next) {
            ApplyToEffects({rule, next});
            rule = next;
            continue;
        }
        current_ = &*rule;
        if (rule->apply != nullptr)
            rule->apply(*this);
        ++rule;
    }
}

// Effect by effect, as all of them don't fit into a cache.
void DialectPass::ApplyToEffects(std::span<const DialectRule> rules)
{
    for (const EffectPart& part : Parts().effects)
        for (const DialectRule& rule : rules) {
            current_ = &rule;
            rule.applyToEffect(*this, part);
        }
}

} // namespace XPJ

// The filters of a tree and what they state, for rules that restate effects.
#pragma once

#include "dialects/parts.h"
#include "tree/object.h"

#include <string_view>
#include <vector>

namespace XPJ {

// An effect of documents, by its `effectid`; one that states none by its name.
struct EffectKey {
    std::string_view id;
    std::string_view name;

    bool Matches(ConstHandle effect) const
    {
        return HasValue(effect, "effectid") ? effect.GetProperty("effectid") == id
                                            : effect.GetProperty("name") == name;
    }
};

inline constexpr EffectKey kPanEffect = {"audiopan", "Audio Pan"};
inline constexpr EffectKey kGainEffect = {"{61756678, 4761696e, 4b657947}", "Gain"};

// Calls `use(owner)` for what has filters: the items, then the tracks of sequences and clips and
// their audio as a whole, then the files.
template <typename Use>
void ForEachFilterOwner(const TreeParts& parts, const Use& use)
{
    for (const ItemPart& part : parts.items)
        if (part.hasFilters)
            use(part.item);
    for (const std::vector<ObjectHandle>* owners : {&parts.sequences, &parts.clips})
        for (const ObjectHandle& owner : *owners)
            for (const ObjectHandle& group : owner.GetChild("media").GetChildren()) {
                use(group);
                for (const ObjectHandle& track : group.GetChildren("track"))
                    use(track);
            }
    for (const ObjectHandle& file : parts.files)
        use(file);
}

// Calls `use(filter)` for every `filter` of the tree.
template <typename Use>
void ForEachFilter(const TreeParts& parts, const Use& use)
{
    ForEachFilterOwner(parts, [&](const ObjectHandle& owner) {
        for (const ObjectHandle& filter : owner.GetChildren("filter"))
            use(filter);
    });
}

// Calls `use(parameter)` for every `parameter` of an effect that has the id.
template <typename Use>
void ForEachParameter(ObjectHandle effect, std::string_view parameterId, const Use& use)
{
    for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("parameterid") == parameterId)
            use(parameter);
}

} // namespace XPJ

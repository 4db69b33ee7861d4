// All effects that the converter knows, collected from the tables that translate them: the outcome
// of each, its name for people, the values at which it changes nothing.
#pragma once

#include "effects/effect_row.h"

#include <string_view>
#include <vector>

namespace XPJ {

// "carried over", "approximated", "dropped"
std::string_view OutcomeText(Outcome outcome);

struct ListedParameter {
    std::string_view name; // of the project, or of the document where the effect is dropped
    bool takesKeyframes = false;
};

// A parameter under its name or id in one of the two families, with the values at which it changes
// nothing, separated by blanks.
struct NeutralValue {
    std::string_view parameter;
    std::string_view values;
};

// The views last to the process's end.
struct EffectListing {
    std::string_view family; // "Video filter"
    std::string_view name;
    std::string_view effectId; // empty where effects are known by their name alone
    std::vector<ListedParameter> parameters = {};
    std::string_view onlyWhen = {}; // the condition of the outcome; else the effect is dropped
    std::string_view note = {};     // what is lost, or what it becomes

    // For listings of documents.
    std::string_view matchName = {};   // or how it begins: audio effects have one a channel type
    std::string_view userName = {};    // the same in both families; empty: each document's own
    std::string_view effectName = {};  // in documents, where nobody renamed it
    std::string_view displayName = {}; // the same in projects
    std::vector<NeutralValue> neutralValues = {}; // of effects that editors write for every clip
    Outcome outcome = Outcome::CarriedOver;
    bool isTransition = false;
    bool isListed = true; // false for a variant of the effect before it
};

// All that the tables hold, in the order of the list of effects.
const std::vector<EffectListing>& KnownEffects();

// Those that are listed.
std::vector<EffectListing> ListEffects();

} // namespace XPJ

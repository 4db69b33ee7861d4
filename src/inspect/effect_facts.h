// What is known of the parameters of effects, by the names that timelines have for them: neutral
// values, defaults, angles. The tables of src/effects hold most of it.
#pragma once

#include "inspect/timeline.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

struct ParameterFacts {
    std::vector<std::string> neutral; // values at which it changes nothing
    std::vector<std::string> missing; // those that count where a document doesn't state it
    bool decides = false;             // at a neutral value all of the effect does nothing
    bool isAngle = false;             // without keyframes a full turn changes nothing
    bool isOfItem = false;            // compared as a property of the item
};

// Null for a parameter of which nothing is known. `kind` is that of the effect.
const ParameterFacts* FindFacts(std::string_view kind, Family family, std::string_view parameter);

// True if any parameter of the effect has a neutral value.
bool HasNeutralValues(std::string_view kind, Family family);

} // namespace XPJ::Inspection

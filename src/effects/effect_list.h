// What becomes of every effect that the converter knows, made from the tables that translate them.
#pragma once

#include <string_view>
#include <vector>

namespace XPJ {

enum class Outcome { CarriedOver, Approximated, Dropped };

// "carried over", "approximated", "dropped"
std::string_view OutcomeText(Outcome outcome);

struct ListedParameter {
    std::string_view name; // of the project, or of the document where the effect is dropped
    bool takesKeyframes = false;
};

// The views last to the process's end.
struct EffectListing {
    std::string_view family; // "Video filter"
    std::string_view name;
    std::string_view effectId; // empty where effects are told by their name alone
    Outcome outcome = Outcome::CarriedOver;
    std::vector<ListedParameter> parameters = {};
    std::string_view note = {}; // what is lost, or on what the outcome depends
};

// All families, in the order of the calls below.
std::vector<EffectListing> ListEffects();

// ---- The families, each defined beside its tables

void AppendIntrinsicEffects(std::vector<EffectListing>& list);
void AppendVideoFilters(std::vector<EffectListing>& list);
void AppendTitles(std::vector<EffectListing>& list);
void AppendAudioEffects(std::vector<EffectListing>& list);
void AppendTransitions(std::vector<EffectListing>& list);

} // namespace XPJ

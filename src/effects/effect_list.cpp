#include "effects/effect_list.h"

#include "effects/audio_filters.h"
#include "effects/title_reader.h"
#include "effects/transitions.h"
#include "effects/video_effects.h"

#include <algorithm>
#include <iterator>

namespace XPJ {

namespace {

using Listings = std::vector<EffectListing>;

// What both families have is listed. Of a dropped effect nothing is.
void AddParam(const ParamRow& row, EffectListing& listing)
{
    if (!row.name.empty() && !row.xmeml.id.empty())
        listing.parameters.push_back({row.name, row.animates});
    if (row.neutral.empty())
        return;
    listing.neutralValues.push_back({row.name, row.neutral});
    if (!row.xmeml.neutral.empty())
        listing.neutralValues.push_back({row.xmeml.id, row.xmeml.neutral});
}

void AddVideoEffects(Listings& list)
{
    for (const EffectRow& row : VideoEffects()) {
        EffectListing& listing = list.emplace_back(
            EffectListing{.family = row.isIntrinsic ? "Intrinsic" : "Video filter",
                          .name = row.isIntrinsic ? row.xmeml.name : row.xmeml.id,
                          .effectId = row.xmeml.id,
                          .onlyWhen = row.onlyWhen,
                          .note = row.note,
                          .matchName = row.project.match,
                          .userName = row.name,
                          .effectName = row.xmeml.name,
                          .displayName = row.project.display,
                          .outcome = row.outcome,
                          .isListed = !row.xmeml.id.empty()});
        if (row.isIntrinsic && !row.name.empty())
            listing.name = row.name;
        if (row.keepsParams)
            listing.parameters.push_back({"all", true});
        for (const ParamRow& param : row.params)
            AddParam(param, listing);
    }
}

void AddTransitions(std::string_view family, MediaType type, Listings& list)
{
    std::string_view lastId;
    for (const TransitionRow& row : TransitionsOf(type)) {
        EffectListing& listing =
            list.emplace_back(EffectListing{.family = family,
                                            .name = row.project.display,
                                            .effectId = row.xmeml.id,
                                            .note = row.note,
                                            .matchName = row.project.match,
                                            .userName = row.name,
                                            .isTransition = true,
                                            .isListed = row.xmeml.id != lastId});
        for (const ParamRow& param : row.params)
            AddParam(param, listing);
        lastId = row.xmeml.id;
    }
    list.push_back({.family = family,
                    .name = "any other",
                    .effectId = {},
                    .note = OtherTransition(type).project.display,
                    .outcome = Outcome::Approximated,
                    .isTransition = true});
}

void AddGenerators(Listings& list)
{
    for (const GeneratorListing& row : ListGenerators()) {
        EffectListing& listing = list.emplace_back(EffectListing{.family = "Generator",
                                                                 .name = row.id,
                                                                 .effectId = row.id,
                                                                 .note = row.note,
                                                                 .outcome = Outcome::Approximated});
        for (const std::string_view part : row.parts)
            listing.parameters.push_back({.name = part});
    }
}

void AddAudioFilters(Listings& list)
{
    for (const AudioFilterRow& row : AudioFilters()) {
        EffectListing& listing = list.emplace_back(
            EffectListing{.family = row.isOfTrack ? "Audio track" : "Audio filter",
                          .name = row.xmeml.name,
                          .effectId = row.xmeml.id,
                          .onlyWhen = row.onlyWhen,
                          .note = row.note,
                          .matchName = row.project.Stem(),
                          .userName = row.name,
                          .effectName = row.xmeml.name,
                          .outcome = row.outcome});
        for (const AudioParamRow& param : row.params)
            AddParam(param.param, listing);
    }
}

Listings MakeList()
{
    Listings list;
    AddVideoEffects(list);
    AddTransitions("Video transition", MediaType::Video, list);
    AddTransitions("Audio transition", MediaType::Audio, list);
    AddGenerators(list);
    AddAudioFilters(list);
    return list;
}

} // namespace

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

const std::vector<EffectListing>& KnownEffects()
{
    static const Listings list = MakeList();
    return list;
}

std::vector<EffectListing> ListEffects()
{
    Listings list;
    std::ranges::copy_if(KnownEffects(), std::back_inserter(list), &EffectListing::isListed);
    return list;
}

} // namespace XPJ

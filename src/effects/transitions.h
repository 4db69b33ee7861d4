// Transitions, a row each: which one of a project corresponds to one of a document, and how it
// looks.
#pragma once

#include "core/media_type.h"
#include "effects/effect_row.h"
#include "tree/object.h"

#include <span>
#include <string_view>

namespace XPJ {

struct TransitionRow {
    XmemlEffect xmeml; // several rows may have one id: the first one is listed
    ComponentNames project;
    std::string_view name = {}; // for people
    std::string_view note = {};
    std::string_view wipeCode = "0";
    std::span<const ParamRow> params = {}; // in the order of the list of effects
    const Color* dipColor = nullptr;       // of a dip
    bool handOffOnly = false;              // ordinary documents do not have it
};

// In the order of the list of effects.
std::span<const TransitionRow> TransitionsOf(MediaType type);
// What an import makes of a transition that is not in the table.
const TransitionRow& OtherTransition(MediaType type);

// The transition track item for the `effect` of a `transitionitem`, without times and neighbors.
// One that projects do not have becomes a dissolve or a cross fade, with an issue. Null for an
// effect without name and id.
ObjectHandle MakeVideoTransition(const EffectContext& context, ConstHandle effect);
ObjectHandle MakeAudioTransition(const EffectContext& context, ConstHandle effect);

// The `effect` for a transition of a project. One that documents do not have becomes a dissolve or
// a cross fade, with an issue.
ObjectHandle TransitionToXmeml(const EffectContext& context, MediaType type,
                               ConstHandle transition);

} // namespace XPJ

// Opacity and composite mode of an item.
#pragma once

#include "effects/effect_row.h"

#include <optional>
#include <string_view>

namespace XPJ {

// Projects state the mode twice, in two lists of modes of the host.
inline constexpr ParamRow kOpacityParams[] = {
    {.id = 1,
     .name = "Opacity",
     .value = "100",
     .lower = "0.",
     .upper = "100.",
     .xmeml = {"opacity", "opacity", "0", "100", "", "100"},
     .neutral = "100"},
    {.id = 2,
     .kind = ParamKind::Choice,
     .name = "Blend Mode",
     .value = "18",
     .lower = "0",
     .upper = "24",
     .xmeml = {.id = "compositemode"}, // of the item
     .control = 10,
     .animates = false,
     .neutral = "18"},
    {.id = 3,
     .kind = ParamKind::Choice,
     .name = "Blend Mode",
     .lower = "0",
     .upper = "29",
     .control = 7,
     .neutral = "0"},
};

inline constexpr EffectRow kOpacity = {
    .xmeml = {"opacity", "Opacity", "motion", "motion"},
    .project = {"KX.ORRN Opacity", "Opacity"},
    .name = "Opacity",
    .note = "composite modes subtract, mask and lumamask become normal",
    .params = kOpacityParams,
    .toProject = nullptr, // by the functions below
    .toXmeml = nullptr,
    .isIntrinsic = true,
};

// The Opacity component of an item. A null `effect` is an item that has a `compositeMode` only. A
// mode that has no counterpart is normal, with an issue.
ObjectHandle TranslateOpacity(const EffectContext& context, ConstHandle effect,
                              std::string_view compositeMode);

// The `compositemode` that an Opacity component has in documents: nothing for the normal one, empty
// for one that documents do not know.
std::optional<std::string_view> CompositeModeOf(ConstHandle component);

// Puts the effect and the `compositemode` of an Opacity component on an item. A mode that documents
// do not know is empty, with an issue.
void OpacityToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle item);

} // namespace XPJ

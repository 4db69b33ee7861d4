// Effects that do nothing, and values that are the same.
//
// Programs write effects that change nothing, some for every clip, parameters at their defaults,
// and keyframes that all have one value; other programs write none of it. An effect is neutral
// where every parameter is at a value at which it changes nothing.
#pragma once

#include "inspect/timeline.h"

#include <optional>
#include <string_view>

namespace XPJ::Inspection {

// True for an effect of which nothing is seen or heard: a crop of 0, a shadow without opacity, an
// effect that is switched off and has its defaults.
bool IsNeutral(const Effect& effect, Family family);

// True for a neutral opacity, volume or pan, which some programs write for every clip.
bool IsOfUntouchedClip(const Effect& effect, Family family);

// True for a Distort of a document that leaves the corners of the frame where they are.
bool IsAspectOnly(const Effect& distort);

// True for a Motion that does nothing but scale.
bool IsScaleOnly(const Effect& motion, Family family);

// ---- Parameters

// True for a value that also counts where a document doesn't state the parameter.
bool IsDefault(const Effect& effect, Family family, const Parameter& parameter);

// True for a parameter that is compared as a property of the item: the mode of an opacity, the text
// of a title.
bool IsOfItem(const Effect& effect, Family family, const Parameter& parameter);

// The value of a parameter that doesn't change, with or without keyframes: one beside keyframes
// does not count. Nothing for a parameter that does.
std::optional<std::string_view> StillValue(const Parameter& parameter);

// Equal but for case and for the rounding of numbers, also those between ":".
//   IsSameValue("0:0.0810185", "0:0.081018") == true
bool IsSameValue(std::string_view a, std::string_view b);
// The same for a parameter that doesn't change: an angle also but for whole turns.
bool IsSameStillValue(const Effect& effect, Family family, const Parameter& parameter,
                      std::string_view a, std::string_view b);

} // namespace XPJ::Inspection

// Effects and transitions under one name in both families, and their values in one format.
#pragma once

#include "inspect/timeline.h"

#include <string>
#include <string_view>

namespace XPJ::Inspection {

// The name of an effect of an XML document, by its `effectid`, else its `name`.
std::string EffectNameOfId(std::string_view effectId, std::string_view name);
// The name of an effect of a project, by its match name, else its display name.
std::string EffectNameOfMatch(std::string_view matchName, std::string_view displayName);

// The same for transitions.
std::string TransitionNameOfId(std::string_view effectId, std::string_view name);
std::string TransitionNameOfMatch(std::string_view matchName, std::string_view displayName);

// Numbers, also those between ":", as short as they can be; other texts without entities and blanks
// at their ends. A long text, such as a look, becomes its length and checksum.
//   PlainText("100.") == "100", PlainText("0.50:.5") == "0.5:0.5"
std::string PlainText(std::string_view value);

// True for what changes nothing: a level of 0 dB, a pan in the middle, a full opacity. Some editors
// write such effects for clips that nobody touched, others do not.
bool IsNeutral(const Effect& effect);

} // namespace XPJ::Inspection

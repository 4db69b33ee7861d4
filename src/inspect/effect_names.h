// Effects and transitions under one name in both families, and their values in one format.
#pragma once

#include "effects/effect_list.h"
#include "inspect/timeline.h"

#include <string>
#include <string_view>

namespace XPJ::Inspection {

// Of an effect of an XML document, by its `effectid`, else its `name`.
Effect NamedById(std::string_view effectId, std::string_view name);
// Of an effect of a project, by its match name, else its display name. `instanceName` is that which
// its user gave it.
Effect NamedByMatch(std::string_view matchName, std::string_view displayName,
                    std::string_view instanceName);
// What both families know an effect by.
std::string KindOf(const EffectListing& row);

// The same for transitions.
std::string TransitionNameOfId(std::string_view effectId, std::string_view name);
std::string TransitionNameOfMatch(std::string_view matchName, std::string_view displayName);

// Numbers, also those between ":", as short as they can be; other texts without entities and blanks
// at their ends. A long text, such as a look, becomes its length and checksum.
//   PlainText("100.") == "100", PlainText("0.50:.5") == "0.5:0.5"
std::string PlainText(std::string_view value);

} // namespace XPJ::Inspection

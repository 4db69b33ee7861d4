// The outcome for each effect that the converter knows, by family.
#pragma once

#include <string>

namespace XPJ::Inspection {

// A row each in Markdown, with its parameters, for the documentation.
std::string EffectTable();

// For a terminal: its outcome, on what that depends, and what is lost.
std::string EffectListText();

} // namespace XPJ::Inspection

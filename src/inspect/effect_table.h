// The outcome for each effect, as a table for the documentation.
#pragma once

#include <string>

namespace XPJ::Inspection {

// Markdown: a row for each effect that the converter knows, by family.
std::string EffectTableText();

} // namespace XPJ::Inspection

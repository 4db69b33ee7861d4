// Looks and lookup tables as text for people and as JSON for programs; docs/inspecting.md shows
// both. Each ends in a line feed.
#pragma once

#include "inspect/look_file.h"

#include <string>

namespace XPJ::Inspection {

std::string LookFileText(const LookFile& file);

// Ill-formed UTF-8 is replaced.
std::string LookFileJson(const LookFile& file);

} // namespace XPJ::Inspection

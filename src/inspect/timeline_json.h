// Timelines and differences as JSON, for programs; docs/inspecting.md shows the structure.
#pragma once

#include "inspect/timeline_text.h"

#include <string>
#include <vector>

namespace XPJ::Inspection {

// Ends in a line feed, as does the next. Ill-formed UTF-8 is replaced.
std::string TreeJson(const Project& project, const IsOnline& isOnline = {});

std::string DifferencesJson(const std::vector<Difference>& differences);

} // namespace XPJ::Inspection

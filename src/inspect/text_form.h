// The model and differences as plain text, for people.
#pragma once

#include "inspect/compare.h"
#include "inspect/timeline.h"

#include <functional>
#include <string>
#include <vector>

namespace XPJ::Inspection {

// Tells whether the file of a medium is there; an empty one leaves the question open.
using IsOnline = std::function<bool(const std::string& path)>;

// The browser, then each sequence, its markers, tracks, items and what hangs on them, a line each.
std::string TreeText(const Project& project, const IsOnline& isOnline = {});

// A line for each difference below its sequence, and a count.
std::string DifferencesText(const std::vector<Difference>& differences);

} // namespace XPJ::Inspection

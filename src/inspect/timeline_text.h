// Timelines and differences as plain text, for people.
#pragma once

#include "inspect/compare.h"
#include "inspect/timeline.h"

#include <functional>
#include <string>
#include <vector>

namespace XPJ::Inspection {

// Whether a media file exists; without the function nothing is said about it.
using IsOnline = std::function<bool(const std::string& path)>;

// The browser, then each sequence, its markers, tracks, items and what belongs to them, a line
// each.
std::string TreeText(const Project& project, const IsOnline& isOnline = {});

// A line for each difference below its sequence, and a count.
std::string DifferencesText(const std::vector<Difference>& differences);

} // namespace XPJ::Inspection

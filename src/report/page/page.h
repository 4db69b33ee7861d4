// The report as one HTML page: drawn timelines on which each clip shows what became of it, and a
// table of all that happened.
//
// The page is a fixed asset without links to anything outside of it. The account and the timelines
// are embedded into it as JSON, and the script of the page makes text of them, never markup. Its
// Content-Security-Policy allows that one script and no network.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <span>
#include <string>

namespace XPJ {

// Texts are UTF-8; what is ill-formed is replaced.
struct PageInput {
    std::string title = {};                      // "interview.xml"
    std::string accountJson = {};                // empty for a comparison without conversion
    const Inspection::Project* first = nullptr;  // timelines of what was read
    const Inspection::Project* second = nullptr; // the other document of a comparison
    std::span<const Inspection::Difference> differences = {}; // of a comparison
};

std::string PageText(const PageInput& input);

} // namespace XPJ

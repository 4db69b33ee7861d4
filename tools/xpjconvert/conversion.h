// One conversion from file to file, under a progress display, that Ctrl-C can stop.
#pragma once

#include "core/translation_issue.h"
#include "model/reader.h"
#include "xpjconvert/options.h"

#include <string>

namespace XPJ {

struct ConversionOutcome {
    int result = 0; // a ConversionResult
    IssueSet issues;
    ReadStop stop;           // where reading the input stopped early
    bool outputLost = false; // the output could not be created, or not all of it be kept
    std::string reportPath;  // empty: no report was written
};

// The output appears under its name only when the result is kSuccess.
ConversionOutcome RunConversion(Direction direction, const ToolOptions& options);

} // namespace XPJ

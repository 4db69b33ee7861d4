// The reports that a conversion leaves.
#pragma once

#include "xpjconvert/options.h"

#include <string>

namespace XPJ {

// Those of --report; without it one text file beside the output, when something did not arrive.
class Reports {
public:
    Reports(const ToolOptions& options, const ConversionRequest& request)
        : options_(options), request_(request)
    {
    }

    // The absolute path of the report that a project lists: the first of --report, else a new file
    // "cut.report.txt" beside the output "cut.vlproj", which no other run gets. Empty if there is
    // none.
    std::string Reserve();

    // Writes them, and sets the path of the one for people in `outcome`. Gives a line for each that
    // could not be written.
    std::string Write(ConversionOutcome& outcome);

private:
    std::string TextOf(const std::string& path, const ConversionOutcome& outcome) const;
    std::string PageOf(const std::string& accountJson) const;

    const ToolOptions& options_;
    const ConversionRequest& request_;
    std::string reserved_; // the file beside the output
};

// Puts `text` into the file, or on the standard output for "-". Gives a line about what failed.
std::string WriteReportFile(const std::string& path, const std::string& text);

// True when the account has what --fail-on names.
bool HasFailure(const ToolOptions& options, const ConversionOutcome& outcome);

} // namespace XPJ

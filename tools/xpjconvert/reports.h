// The reports that a conversion leaves.
#pragma once

#include "xpjconvert/options.h"

#include <initializer_list>
#include <string>
#include <string_view>

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
    // none, or if it can't be written.
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

// The first of --report that would replace one of the files, links followed; empty if none does.
std::string ReportOverFile(const ToolOptions& options,
                           std::initializer_list<std::string_view> files);

// True when the account has what --fail-on names.
bool HasFailure(const ToolOptions& options, const ConversionOutcome& outcome);

} // namespace XPJ

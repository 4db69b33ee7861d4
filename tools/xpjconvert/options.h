// The command line of the tool.
#pragma once

#include "frame/conversion.h"
#include "inspect/ignored.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace XPJ {

// Exit status for wrong usage; a conversion ends with its ConversionResult, 0 to 6.
constexpr int kWrongUsage = 64;
// Exit status of a comparison that found differences.
constexpr int kDifferent = 10;
// Exit status of a conversion with what --fail-on names.
constexpr int kLossesFound = 11;

struct ToolOptions {
    ConversionRequest request; // its formats are still to be set
    bool quiet = false;
    bool strict = false; // without the rules for other programs' dialects
    std::optional<std::uint64_t> seed;
    std::vector<std::pair<std::string, std::string>> debugEntries;
    // The account of the conversion.
    std::vector<std::string> reports; // files to write, by extension; "-" is the standard output
    bool verify = false;              // compare the output with the input
    std::string reportFolder;         // of the report without --report; empty: beside the output
    std::set<std::string> failOn; // outcomes that give the status of losses, or "cut-off", "any"
    // Instead of a conversion.
    bool inspect = false;
    bool compare = false;        // the input with the "output", both of which are read
    Inspection::Ignored ignored; // by the comparison
    bool listEffects = false;
    bool json = false; // how the first two print
};

// Reads the command line. A value is the exit status to end with at once, after a help text on the
// standard output or an error on the standard error.
std::optional<int> ParseOptions(int argc, const char* const* argv, ToolOptions& options);

} // namespace XPJ

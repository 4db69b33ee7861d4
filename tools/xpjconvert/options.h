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

namespace CLI {
class App;
}

namespace XPJ {

// Exit status for wrong usage; a conversion ends with its ConversionResult, 0 to 6.
constexpr int kWrongUsage = 64;
// Exit status of a comparison that found differences.
constexpr int kDifferent = 10;
// Exit status of a conversion with what --fail-on names.
constexpr int kLossesFound = 11;

// Exit status of a batch in which some documents failed.
constexpr int kSomeFailed = 12;

// The name of the standard streams on the command line.
constexpr std::string_view kStandardStream = "-";

// What the tool does; all but the first print something and convert nothing.
enum class ToolMode { Convert, Inspect, Summary, ListSequences, ListMedia, Compare, ListEffects };

// One of several runs that share the documents.
struct BatchPart {
    std::size_t number = 1; // from 1 to the count
    std::size_t count = 1;
};

// How several documents are converted.
struct BatchOptions {
    bool isRequested = false;                    // one of these is given
    std::size_t jobs = 1;                        // at a time; 0: as many as there are processors
    bool overwrite = false;                      // outputs that exist
    bool skipExisting = false;                   // documents whose output exists and is newer
    std::string summary = {};                    // the file with a row for each document
    std::vector<std::string> reportFormats = {}; // extensions of the reports of each document
    std::optional<BatchPart> part = {};
};

struct ToolOptions {
    ToolMode mode = ToolMode::Convert;
    // As they are given: files, folders, "@LIST", "-".
    std::vector<std::string> inputs;
    std::string output;         // a file or a folder; empty: the current folder
    bool outputIsNamed = false; // by -o, not by its place among the documents
    std::string partner;        // that the input is compared with
    bool recursive = false;
    const Format* from = nullptr; // stated by the user
    const Format* to = nullptr;
    bool toOtio = false; // instead of either format
    bool dryRun = false;

    ConversionRequest request; // for each document; its formats and paths are still to be set
    bool handOff = false;
    bool quiet = false;
    bool strict = false; // without the rules for other programs' dialects
    std::optional<std::uint64_t> seed;
    std::vector<std::pair<std::string, std::string>> debugEntries;
    // The account of the conversion.
    std::vector<std::string> reports; // files to write, by extension; "-" is the standard output
    bool verify = false;              // compare the output with the input
    std::string reportFolder;         // of the report without --report; empty: beside the output
    std::set<std::string> failOn; // outcomes that give the status of losses, or "cut-off", "any"
    BatchOptions batch;
    // Of the modes that print.
    Inspection::Ignored ignored; // by a comparison
    bool json = false;
    std::string mediaList; // "text", "json" or "csv"; empty: none
};

// What the command line states, before it is checked as a whole.
struct CommandLine {
    std::vector<std::string> documents; // the inputs; of two the second may be the output
    std::string output;
    std::string from;
    std::string to;
    std::string inspect; // "full", "summary"; empty: not given
    bool listSequences = false;
    bool compare = false;
    bool listEffects = false;
    bool noAdditions = false;
    std::vector<std::string> entries; // KEY=VALUE
    std::vector<std::string> ignored;
    std::vector<std::string> mappedPaths; // OLD=NEW
    std::vector<std::string> mapFiles;
    std::vector<std::string> mediaFolders;
    std::string part;    // "2/10"
    ToolOptions options; // what needs no more than its own check
};

// Enters all options: the one table from which the command line is read and its help is printed.
// `line` must live as long as `app`.
void AddOptions(CLI::App& app, CommandLine& line);

// Reads the command line. A value is the exit status to end with at once, after a help text on the
// standard output or an error on the standard error.
std::optional<int> ParseOptions(int argc, const char* const* argv, ToolOptions& options);

} // namespace XPJ

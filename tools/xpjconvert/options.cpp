#include "xpjconvert/options.h"

#include "report/account_report.h"

#include <sstream>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

namespace XPJ {
namespace {

constexpr const char* kDescription =
    "Converts a Final Cut Pro XML document into a Vela project, or back.";

constexpr const char* kFooter = R"(

Exit status:
  0   converted
  2   no FCP data in the input, or no such sequence
  3   out of memory
  4   no xmeml data in the input
  5   the input could not be opened
  6   unexpected error, or the output could not be written
  10  --compare found differences
  11  converted, but the report has what --fail-on names
  64  wrong usage
  A run that is stopped by a signal ends with that signal.

Environment:
  VELA_DEBUG_DATABASE  names a file of KEY=VALUE lines for the debug database;
                       --set overrides it)";

// "Final Cut Pro XML (.xml), Vela project (.vlproj)"
std::string FormatsText()
{
    std::string text;
    for (const Format& format : AllFormats())
        text += fmt::format("{}{} (.{})", text.empty() ? "" : ", ", format.name, format.extension);
    return text;
}

// Lines of at most 80 characters, indented by two; `list` has commas between its entries.
std::string WrappedList(const std::string& list)
{
    constexpr std::size_t kWidth = 80;
    std::string text;
    std::string line = " ";
    std::istringstream entries(list);
    for (std::string entry; std::getline(entries, entry, ',');) {
        if (entry.starts_with(' '))
            entry.erase(0, 1);
        if (line.size() + 1 + entry.size() + 1 > kWidth) {
            text += line + "\n";
            line = " ";
        }
        line += " " + entry + ",";
    }
    line.pop_back();
    return text + line;
}

std::string CheckIgnorable(const std::string& name)
{
    return Inspection::Ignored().Add(name)
               ? ""
               : "'" + name + "' is none of " + Inspection::IgnorableNames();
}

std::string CheckKeyValue(const std::string& text)
{
    const auto equals = text.find('=');
    return equals == std::string::npos || equals == 0 ? "'" + text + "' is not KEY=VALUE" : "";
}

std::string CheckGuid(const std::string& text)
{
    return StringToGUID(text) == kZeroGuid ? "'" + text + "' is not a GUID" : "";
}

const std::set<std::string> kFailures = {"lost", "changed", "assumed", "skipped", "cut-off", "any"};

std::string CheckReport(const std::string& path)
{
    return path == "-" || FormatOfReport(path) ? ""
                                               : "'" + path + "' is not .txt, .json, .csv or .html";
}

// Rules for more than one option.
void CheckNeeds(const ToolOptions& options, bool ignores)
{
    const int modes = options.inspect + options.compare + options.listEffects;
    if (modes > 1)
        throw CLI::ExcludesError("--inspect, --compare and --list-effects", "each other");
    if (options.request.inputPath.empty() != options.listEffects)
        throw options.listEffects ? CLI::ParseError(CLI::ExtrasError({options.request.inputPath}))
                                  : CLI::ParseError(CLI::RequiredError("INPUT"));
    if (options.compare && options.request.outputPath.empty())
        throw CLI::RequiredError("OUTPUT");
    if (options.inspect && !options.request.outputPath.empty())
        throw CLI::ExtrasError({options.request.outputPath});
    if (ignores && !options.compare)
        throw CLI::RequiresError("--ignore", "--compare");
    if (options.json && !options.inspect && !options.compare)
        throw CLI::RequiresError("--json", "--inspect or --compare");
}

} // namespace

std::optional<int> ParseOptions(int argc, const char* const* argv, ToolOptions& options)
{
    std::vector<std::string> entries;
    std::vector<std::string> ignored;
    std::string sequence;
    bool handOff = false;
    bool noAdditions = false;

    CLI::App app(kDescription, "xpjconvert");
    app.footer("\nNames for --ignore:\n" + WrappedList(Inspection::IgnorableNames()) + kFooter);
    app.set_version_flag("--version", "xpjconvert " VELA_VERSION);
    app.add_option("INPUT", options.request.inputPath, "The document to convert: " + FormatsText());
    app.add_option("OUTPUT", options.request.outputPath,
                   "The file to write; by default in the current folder, named after INPUT");
    app.add_flag("-q,--quiet", options.quiet, "Print only the last line, and errors");
    app.add_flag("--strict", options.strict,
                 "Read and write to the letter, as the plug-in does in its host");
    app.add_option("--seed", options.seed,
                   "Same input, same output; the project doesn't list the report")
        ->option_text("N");
    app.add_option("--set", entries, "Set an entry of the debug database; may be repeated")
        ->option_text("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(CheckKeyValue);
    app.add_option(
           "--report", options.reports,
           "Write what did not arrive into this file, by its extension as .txt, .json, .csv "
           "or .html; - is the standard output, as text; may be repeated")
        ->option_text("FILE")
        ->allow_extra_args(false)
        ->check(CheckReport);
    app.add_option("--report-dir", options.reportFolder,
                   "Without --report: write the report into this folder, not beside OUTPUT")
        ->option_text("DIR");
    app.add_flag("--verify", options.verify,
                 "Read the output back and report every difference that nothing else explains");
    app.add_flag("--mark-losses", options.request.markLosses,
                 "Put a marker into the written sequences wherever something did not arrive");
    app.add_option("--fail-on", options.failOn,
                   "End with status 11 when the report has such a thing: lost, changed, assumed, "
                   "skipped, cut-off or any; may be repeated")
        ->option_text("OUTCOME,...")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember(kFailures));
    app.add_option("--sequence", sequence, "Convert only this sequence of a .vlproj")
        ->option_text("GUID")
        ->check(CheckGuid);
    app.add_flag("--no-additions", noAdditions,
                 "Write no elements and attributes that the document type doesn't have");
    app.add_flag("--handoff", handOff, "Convert a .vlproj for the hand-off to the audio editor");
    app.add_flag("--inspect", options.inspect, "Print what is in INPUT instead of converting it");
    app.add_flag("--compare", options.compare,
                 "Print the differences between INPUT and OUTPUT instead of converting");
    app.add_option("--ignore", ignored,
                   "With --compare: what is not compared, separated by commas; may be repeated")
        ->option_text("NAME,...")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CheckIgnorable);
    app.add_flag("--list-effects", options.listEffects,
                 "Print what becomes of each effect; needs no INPUT");
    app.add_flag("--json", options.json, "With --inspect or --compare: print JSON");

    try {
        app.parse(argc, argv);
        CheckNeeds(options, !ignored.empty());
    } catch (const CLI::ParseError& end) {
        return app.exit(end) == 0 ? 0 : kWrongUsage;
    }
    for (const std::string& entry : entries) {
        const auto equals = entry.find('=');
        options.debugEntries.emplace_back(entry.substr(0, equals), entry.substr(equals + 1));
    }
    for (const std::string& name : ignored)
        options.ignored.Add(name);
    options.request.sequenceGuid = StringToGUID(sequence);
    options.request.handOff = handOff ? std::optional(true) : std::nullopt;
    options.request.additions = !noAdditions;
    return std::nullopt;
}

} // namespace XPJ

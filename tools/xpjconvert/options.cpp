#include "xpjconvert/options.h"

#include <CLI/CLI.hpp>

namespace XPJ {
namespace {

constexpr const char* kDescription =
    "Translates a Final Cut Pro XML document (.xml) into a Vela project (.vlproj), and back.";

constexpr const char* kFooter = R"(
Exit status:
  0  converted                      5   the input could not be opened
  2  no FCP data, no such sequence  6   unexpected error, output not written
  3  out of memory                  10  --compare: they differ
  4  no xmeml data in the input     64  wrong usage
  A run that a signal stops ends by that signal.

Environment:
  VELA_DEBUG_DATABASE  a file of Key=Value lines, as with --set, which wins over it)";

std::string CheckKeyValue(const std::string& text)
{
    const auto equals = text.find('=');
    return equals == std::string::npos || equals == 0 ? "'" + text + "' is not KEY=VALUE" : "";
}

std::string CheckGuid(const std::string& text)
{
    return StringToGUID(text) == kZeroGuid ? "'" + text + "' is not a GUID" : "";
}

// Rules for more than one option.
void CheckNeeds(const ToolOptions& options)
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
    if (options.json && !options.inspect && !options.compare)
        throw CLI::RequiresError("--json", "--inspect or --compare");
}

} // namespace

std::optional<int> ParseOptions(int argc, const char* const* argv, ToolOptions& options)
{
    std::vector<std::string> entries;
    std::string sequence;
    bool handOff = false;

    CLI::App app(kDescription, "xpjconvert");
    app.footer(kFooter);
    app.set_version_flag("--version", "xpjconvert " VELA_VERSION);
    app.add_option("INPUT", options.request.inputPath, "A document, .xml or .vlproj");
    app.add_option("OUTPUT", options.request.outputPath,
                   "What to write; without it a file in the current folder named after INPUT");
    app.add_flag("-q,--quiet", options.quiet, "Only the closing line, and errors");
    app.add_option("--seed", options.seed, "Same input, same bytes; the project lists no report")
        ->option_text("N");
    app.add_option("--set", entries, "Sets an entry of the debug database; may be repeated")
        ->option_text("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(CheckKeyValue);
    app.add_option("--report-dir", options.reportFolder, "folder for the translation report")
        ->option_text("DIR");
    app.add_option("--sequence", sequence, ".vlproj only: converts one sequence")
        ->option_text("GUID")
        ->check(CheckGuid);
    app.add_flag("--handoff", handOff, ".vlproj only: the form for the audio editor");
    app.add_flag("--inspect", options.inspect, "Prints what is in INPUT, and converts nothing");
    app.add_flag("--compare", options.compare,
                 "Prints what differs from INPUT to OUTPUT, which is read as well");
    app.add_flag("--list-effects", options.listEffects,
                 "Prints what becomes of each effect; needs no INPUT");
    app.add_flag("--json", options.json, "--inspect and --compare: in a form for programs");

    try {
        app.parse(argc, argv);
        CheckNeeds(options);
    } catch (const CLI::ParseError& end) {
        return app.exit(end) == 0 ? 0 : kWrongUsage;
    }
    for (const std::string& entry : entries) {
        const auto equals = entry.find('=');
        options.debugEntries.emplace_back(entry.substr(0, equals), entry.substr(equals + 1));
    }
    options.request.sequenceGuid = StringToGUID(sequence);
    options.request.handOff = handOff ? std::optional(true) : std::nullopt;
    return std::nullopt;
}

} // namespace XPJ

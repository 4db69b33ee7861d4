#include "xpjconvert/options.h"

#include "inspect/columns.h"
#include "media/media_paths.h"
#include "report/account_report.h"
#include "xpjconvert/help_format.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <memory>
#include <system_error>
#include <utility>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

namespace XPJ {
namespace {

constexpr const char* kDescription =
    "Converts Final Cut Pro XML documents into Vela projects, or back, and reports what did not\n"
    "arrive as it was.\n";

constexpr const char* kFooter = R"(
Examples:
  xpjconvert cut.xml                        writes cut.vlproj into the current folder
  xpjconvert cut.vlproj -o out/             writes out/cut.xml
  xpjconvert cut.xml --verify --report cut.html
                                            reads the output back; the report is a page
  xpjconvert show.vlproj --sequence "Reel 2" -o reel2.xml
                                            one sequence
  cat cut.xml | xpjconvert - -o - >cut.vlproj
                                            from a pipe to a pipe
  xpjconvert cut.xml --to otio              writes cut.otio, for OpenTimelineIO
  xpjconvert cut.xml --map-path /Volumes/Media=/mnt/raid --relink /mnt/proxies
                                            its media files are elsewhere here
  xpjconvert -j -r archive -o projects --skip-existing --summary night.csv
                                            all documents below a folder; a second
                                            run does what is missing
  xpjconvert --inspect=summary cut.xml      what is in a document
  xpjconvert --compare old.xml new.xml      what changed between two

Exit status:
  0   converted
  2   no FCP data in the input, or no such sequence
  3   out of memory
  4   no xmeml data in the input
  5   the input could not be opened
  6   unexpected error, or the output or a named report could not be written
  10  --compare found differences
  11  converted, but the report has what --fail-on names
  12  some of several documents failed
  64  wrong usage
  A run that is stopped by a signal ends with that signal.

Environment:
  VELA_DEBUG_DATABASE  names a file of KEY=VALUE lines for the debug database;
                       --set overrides it)";

// By which --from and --to name a format.
std::string_view NameOf(const Format& format)
{
    return format.kind == TreeKind::Xmeml ? format.element : format.extension;
}

const Format* FormatNamed(std::string_view name)
{
    const auto found = std::ranges::find(AllFormats(), name, NameOf);
    return found == AllFormats().end() ? nullptr : &*found;
}

std::vector<std::string> FormatNames()
{
    std::vector<std::string> names;
    for (const Format& format : AllFormats())
        names.emplace_back(NameOf(format));
    return names;
}

// What can be written, but not read.
constexpr std::string_view kOtioName = "otio";

std::vector<std::string> TargetNames()
{
    std::vector<std::string> names = FormatNames();
    names.emplace_back(kOtioName);
    return names;
}

// Indented by two.
std::string Paragraph(const std::string& words)
{
    constexpr std::size_t kWidth = 76;
    std::string text;
    for (const std::string& line : Inspection::WrappedLines(words, kWidth))
        text += "  " + line + "\n";
    return text;
}

// A path with "=" goes into a --map-file.
std::string AddPathPair(const std::string& text, PathMap& map)
{
    const auto equals = text.find('=');
    return equals != std::string::npos && map.Add(std::string_view(text).substr(0, equals),
                                                  std::string_view(text).substr(equals + 1))
               ? ""
               : "'" + text + "' is not OLD=NEW";
}

std::string CheckPathPair(const std::string& text)
{
    PathMap map;
    return AddPathPair(text, map);
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

// A minus sign would be wrapped around.
std::string CheckNumber(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos
               ? ""
               : "'" + text + "' is not a number";
}

std::string CheckNotEmpty(const std::string& text)
{
    return text.empty() ? "the text is empty" : "";
}

const std::set<std::string> kFailures = {"lost", "changed", "assumed", "skipped", "cut-off", "any"};
const std::set<std::string> kInspections = {"full", "summary"};
const std::set<std::string> kMediaLists = {"text", "json", "csv"};

std::string CheckReport(const std::string& path)
{
    return path == kStandardStream || FormatOfReport(path)
               ? ""
               : "'" + path + "' is not .txt, .json, .csv or .html";
}

void AddDocumentOptions(CLI::App& app, CommandLine& line)
{
    constexpr const char* kGroup = "Documents";
    app.add_option("INPUT", line.documents,
                   "A document to convert, - for the standard input; its content decides the "
                   "direction. Also a folder, or @LIST, a file with a path in each line. Of two "
                   "documents without -o the second is the file to write")
        ->option_text("INPUT...");
    app.add_option("-o,--output", line.output,
                   "The file to write, a folder for it, or - for the standard output; by default "
                   "a file in the current folder, named after INPUT")
        ->option_text("FILE|DIR")
        ->check(CheckNotEmpty)
        ->group(kGroup);
    app.add_flag("-r,--recursive", line.options.recursive,
                 "Of a folder also what is in the folders below")
        ->group(kGroup);
    app.add_option("--from", line.from, "The format of INPUT, where its content doesn't show it")
        ->option_text("FORMAT")
        ->check(CLI::IsMember(FormatNames()))
        ->group(kGroup);
    app.add_option("--to", line.to,
                   "The format to write; otio is the timelines for other programs "
                   "(OpenTimelineIO), from either format")
        ->option_text("FORMAT")
        ->check(CLI::IsMember(TargetNames()))
        ->group(kGroup);
    app.add_option("--sequence", line.options.request.sequence,
                   "Convert only this sequence; --list-sequences shows names, numbers and ids")
        ->option_text("NAME|NUMBER|ID")
        ->check(CheckNotEmpty)
        ->group(kGroup);
    app.add_flag("-n,--dry-run", line.options.dryRun,
                 "Write no document: only show what would become of it")
        ->group(kGroup);
}

void AddTranslationOptions(CLI::App& app, CommandLine& line)
{
    constexpr const char* kGroup = "Translation";
    app.add_flag("--strict", line.options.strict,
                 "Read and write to the letter, as the plug-in does in its host")
        ->group(kGroup);
    app.add_flag("--no-additions", line.noAdditions,
                 "Write no elements and attributes that the document type doesn't have")
        ->group(kGroup);
    app.add_flag("--handoff", line.options.handOff,
                 "Convert a project for the hand-off to the audio editor")
        ->group(kGroup);
    app.add_option("--seed", line.options.seed,
                   "Same input, same output; the project doesn't list the report")
        ->option_text("N")
        ->check(CheckNumber)
        ->group(kGroup);
    app.add_option("--set", line.entries, "Set an entry of the debug database; may be repeated")
        ->option_text("KEY=VALUE")
        ->allow_extra_args(false)
        ->check(CheckKeyValue)
        ->group(kGroup);
}

void AddMediaOptions(CLI::App& app, CommandLine& line)
{
    constexpr const char* kGroup = "Media files";
    app.add_option("--map-path", line.mappedPaths,
                   "Write a path that begins with OLD as one that begins with NEW; the longest OLD "
                   "counts; may be repeated")
        ->option_text("OLD=NEW")
        ->allow_extra_args(false)
        ->check(CheckPathPair)
        ->group(kGroup);
    app.add_option("--map-file", line.mapFiles,
                   "The same for each line of a file with two columns, old,new; may be repeated")
        ->option_text("CSV")
        ->allow_extra_args(false)
        ->group(kGroup);
    app.add_option("--relink", line.mediaFolders,
                   "Look for a media file that is not where INPUT states below this folder, by its "
                   "name and, among several, by what INPUT states of it; may be repeated")
        ->option_text("DIR")
        ->allow_extra_args(false)
        ->check(CLI::ExistingDirectory)
        ->group(kGroup);
}

void AddReportOptions(CLI::App& app, CommandLine& line)
{
    constexpr const char* kGroup = "Reports";
    app.add_option(
           "--report", line.options.reports,
           "Write what did not arrive into this file, by its extension as .txt, .json, .csv "
           "or .html; - is the standard output, as text; may be repeated")
        ->option_text("FILE")
        ->allow_extra_args(false)
        ->check(CheckReport)
        ->group(kGroup);
    app.add_option("--report-dir", line.options.reportFolder,
                   "Without --report: write the report into this folder, not beside the output")
        ->option_text("DIR")
        ->group(kGroup);
    app.add_flag("--verify", line.options.verify,
                 "Read the output back and report every difference that nothing else explains")
        ->group(kGroup);
    app.add_flag("--mark-losses", line.options.request.markLosses,
                 "Put a marker into the written sequences wherever something did not arrive")
        ->group(kGroup);
    app.add_option("--fail-on", line.options.failOn,
                   "End with status 11 when the report has such a thing: lost, changed, assumed, "
                   "skipped, cut-off or any; may be repeated")
        ->option_text("OUTCOME,...")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember(kFailures))
        ->group(kGroup);
    app.add_flag("-q,--quiet", line.options.quiet, "Print only the last line, and errors")
        ->group(kGroup);
}

// Nothing for what isn't K/N.
std::optional<BatchPart> PartOf(const std::string& text)
{
    BatchPart part;
    const char* const end = text.data() + text.size();
    const auto number = std::from_chars(text.data(), end, part.number);
    if (number.ec != std::errc() || number.ptr == end || *number.ptr != '/')
        return std::nullopt;
    const auto count = std::from_chars(number.ptr + 1, end, part.count);
    if (count.ec != std::errc() || count.ptr != end || part.number < 1 || part.number > part.count)
        return std::nullopt;
    return part;
}

std::string CheckPart(const std::string& text)
{
    return PartOf(text) ? "" : "'" + text + "' is not K/N with K from 1 to N";
}

std::string CheckSummary(const std::string& path)
{
    const std::optional<ReportFormat> format = FormatOfReport(path);
    return format == ReportFormat::Json || format == ReportFormat::Csv
               ? ""
               : "'" + path + "' is not .csv or .json";
}

void AddBatchOptions(CLI::App& app, CommandLine& line)
{
    constexpr const char* kGroup = "Batches: several documents into the folder -o";
    BatchOptions& batch = line.options.batch;
    const std::vector<CLI::Option*> options = {
        app.add_option("-j,--jobs", batch.jobs,
                       "Convert so many documents at a time, each in a process of its own; "
                       "without N as many as there are processors")
            ->option_text("N")
            ->check(CLI::Range(0, 1024)),
        app.add_flag("--overwrite", batch.overwrite, "Replace outputs that exist"),
        app.add_flag("--skip-existing", batch.skipExisting,
                     "Convert only what has no output yet, or one that is older than the document"),
        app.add_option("--summary", batch.summary,
                       "Write a row for each document into this file, .csv or .json")
            ->option_text("FILE")
            ->check(CheckSummary),
        app.add_option("--report-format", batch.reportFormats,
                       "Write a report of each document, named after its output: txt, json, csv or "
                       "html; may be repeated")
            ->option_text("FORMAT,...")
            ->delimiter(',')
            ->allow_extra_args(false)
            ->check(CLI::IsMember({"txt", "json", "csv", "html"})),
        app.add_option("--part", line.part,
                       "Convert only the Kth of N parts, for N runs that share the work")
            ->option_text("K/N")
            ->check(CheckPart),
    };
    for (CLI::Option* const option : options)
        option->group(kGroup)->each([&batch](const std::string&) { batch.isRequested = true; });
}

// The arguments, with the number that `-j` may lack: the parser would take the next one for it.
std::vector<std::string> ArgumentsWithJobs(int argc, const char* const* argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.emplace_back(argv[i]);
        const bool isJobs = arguments.back() == "-j" || arguments.back() == "--jobs";
        if (isJobs && (i + 1 == argc || !CheckNumber(argv[i + 1]).empty()))
            arguments.emplace_back("0");
    }
    return arguments;
}

void AddPrintingOptions(CLI::App& app, CommandLine& line)
{
    constexpr const char* kGroup = "Instead of a conversion";
    app.add_flag("--inspect{full}", line.inspect,
                 "Print what is in INPUT; --inspect=summary prints a screenful")
        ->option_text("[=summary]")
        ->check(CLI::IsMember(kInspections))
        ->group(kGroup);
    app.add_flag("--list-sequences", line.listSequences, "Print the sequences of INPUT")
        ->group(kGroup);
    app.add_flag("--list-media{text}", line.options.mediaList,
                 "Print the media files of INPUT, and whether they are there; =json and =csv for "
                 "programs")
        ->option_text("[=json|csv]")
        ->check(CLI::IsMember(kMediaLists))
        ->group(kGroup);
    app.add_flag("--compare", line.compare, "Print the differences between two documents")
        ->group(kGroup);
    app.add_option("--ignore", line.ignored,
                   "With --compare: what is not compared, separated by commas; may be repeated")
        ->option_text("NAME,...")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CheckIgnorable)
        ->group(kGroup);
    app.add_flag("--list-effects", line.listEffects,
                 "Print what becomes of each effect; needs no INPUT")
        ->group(kGroup);
    app.add_flag("--json", line.options.json, "Of what is printed: JSON")->group(kGroup);
}

// How many documents a mode takes, and the options that count in it, beside its own.
struct ModeRow {
    ToolMode mode;
    std::string_view option;
    std::size_t documents;
    std::initializer_list<std::string_view> uses;
};
const ModeRow kModes[] = {
    {ToolMode::Inspect, "--inspect", 1, {"--strict", "--seed", "--json"}},
    {ToolMode::Summary, "--inspect=summary", 1, {"--strict", "--seed"}},
    {ToolMode::ListSequences, "--list-sequences", 1, {"--strict", "--seed", "--json"}},
    {ToolMode::ListMedia,
     "--list-media",
     1,
     {"--strict", "--seed", "--json", "--map-path", "--map-file", "--relink"}},
    {ToolMode::Compare,
     "--compare",
     2,
     {"--strict", "--seed", "--json", "--map-path", "--map-file", "--relink", "--report",
      "--ignore"}},
    {ToolMode::ListEffects, "--list-effects", 0, {"--seed"}},
};

const ModeRow& RowOf(ToolMode mode)
{
    return *std::ranges::find(kModes, mode, &ModeRow::mode);
}

ToolMode ModeOf(const CommandLine& line)
{
    std::vector<ToolMode> modes;
    if (!line.inspect.empty())
        modes.push_back(line.inspect == "summary" ? ToolMode::Summary : ToolMode::Inspect);
    if (line.listSequences)
        modes.push_back(ToolMode::ListSequences);
    if (!line.options.mediaList.empty())
        modes.push_back(ToolMode::ListMedia);
    if (line.compare)
        modes.push_back(ToolMode::Compare);
    if (line.listEffects)
        modes.push_back(ToolMode::ListEffects);
    if (modes.size() > 1)
        throw CLI::ExcludesError(std::string(RowOf(modes[0]).option),
                                 std::string(RowOf(modes[1]).option));
    return modes.empty() ? ToolMode::Convert : modes.front();
}

// Rules for more than one option.
void CheckPrintingMode(const CLI::App& app, const CommandLine& line, ToolMode mode)
{
    const ModeRow& row = RowOf(mode);
    if (line.documents.size() < row.documents)
        throw CLI::RequiredError(row.documents == 2 ? "A second document" : "INPUT");
    if (line.documents.size() > row.documents)
        throw CLI::ExtrasError({line.documents.back()});
    for (const CLI::Option* const option : app.get_options()) {
        const std::string name = option->get_name();
        const bool isUsed = option->get_positional() || row.option.starts_with(name) ||
                            std::ranges::find(row.uses, name) != row.uses.end();
        if (option->count() > 0 && !isUsed)
            throw CLI::ExcludesError(std::string(row.option), name);
    }
}

// Nothing is translated for it: there is no account, and nothing to choose.
void CheckOtio(const CommandLine& line)
{
    const ToolOptions& options = line.options;
    const std::pair<bool, std::string_view> excluded[] = {
        {options.verify, "--verify"},
        {!options.reports.empty(), "--report"},
        {!options.reportFolder.empty(), "--report-dir"},
        {!options.failOn.empty(), "--fail-on"},
        {options.request.markLosses, "--mark-losses"},
        {options.handOff, "--handoff"},
        {line.noAdditions, "--no-additions"},
    };
    for (const auto& [isGiven, name] : excluded)
        if (isGiven)
            throw CLI::ExcludesError(std::string(name), "--to otio");
}

bool PrintsDocument(const CommandLine& line)
{
    const bool isSecond = line.output.empty() && line.documents.size() == 2;
    return !line.options.dryRun &&
           (isSecond ? line.documents.back() : line.output) == kStandardStream;
}

void CheckConversion(const CommandLine& line)
{
    if (line.documents.empty())
        throw CLI::RequiredError("INPUT");
    if (line.documents.size() > 2 && line.output.empty())
        throw CLI::RequiredError("--output, the folder for several documents,");
    if (line.options.json)
        throw CLI::RequiresError("--json",
                                 "--inspect, --list-sequences, --list-media or --compare");
    if (line.options.batch.overwrite && line.options.batch.skipExisting)
        throw CLI::ExcludesError("--overwrite", "--skip-existing");
    if (PrintsDocument(line) && std::ranges::count(line.options.reports, kStandardStream) > 0)
        throw CLI::ExcludesError("--report -", "--output -");
    if (!line.from.empty() && line.from == line.to)
        throw CLI::ExcludesError("--from " + line.from, "--to " + line.to);
    if (line.to == kOtioName)
        CheckOtio(line);
}

// `xpjconvert INPUT OUTPUT`, unless the output is named otherwise.
void SetDocuments(const CommandLine& line, ToolOptions& options)
{
    options.inputs = line.documents;
    options.output = line.output;
    options.outputIsNamed = !line.output.empty();
    if (line.documents.size() != 2 || !line.output.empty())
        return;
    options.inputs.pop_back();
    (line.compare ? options.partner : options.output) = line.documents.back();
}

// One for all documents; null without an option of the kind. Pairs of the command line come before
// those of files.
std::shared_ptr<MediaPaths> MediaPathsOf(const CommandLine& line)
{
    if (line.mappedPaths.empty() && line.mapFiles.empty() && line.mediaFolders.empty())
        return nullptr;
    PathMap map;
    for (const std::string& pair : line.mappedPaths)
        AddPathPair(pair, map);
    for (const std::string& file : line.mapFiles)
        if (const std::string fault = AddPathFile(file, map); !fault.empty())
            throw CLI::ValidationError("--map-file", fault);
    return std::make_shared<MediaPaths>(std::move(map), line.mediaFolders);
}

void Complete(const CLI::App& app, const CommandLine& line, ToolOptions& options)
{
    options = line.options;
    options.mode = ModeOf(line);
    if (options.mode == ToolMode::Convert)
        CheckConversion(line);
    else
        CheckPrintingMode(app, line, options.mode);
    if (!line.ignored.empty() && options.mode != ToolMode::Compare)
        throw CLI::RequiresError("--ignore", "--compare");
    SetDocuments(line, options);
    options.from = FormatNamed(line.from);
    options.to = FormatNamed(line.to);
    options.toOtio = line.to == kOtioName;
    options.batch.part = PartOf(line.part);
    for (const std::string& entry : line.entries) {
        const auto equals = entry.find('=');
        options.debugEntries.emplace_back(entry.substr(0, equals), entry.substr(equals + 1));
    }
    for (const std::string& name : line.ignored)
        options.ignored.Add(name);
    options.request.handOff = options.handOff ? std::optional(true) : std::nullopt;
    options.request.additions = !line.noAdditions;
    options.request.mediaPaths = MediaPathsOf(line);
    if (options.json && !options.mediaList.empty())
        options.mediaList = "json";
}

} // namespace

void AddOptions(CLI::App& app, CommandLine& line)
{
    app.description(kDescription);
    app.name("xpjconvert");
    app.formatter(std::make_shared<HelpFormat>());
    app.footer("\nNames for --ignore:\n" + Paragraph(Inspection::IgnorableNames()) + kFooter);
    AddDocumentOptions(app, line);
    AddTranslationOptions(app, line);
    AddMediaOptions(app, line);
    AddReportOptions(app, line);
    AddBatchOptions(app, line);
    AddPrintingOptions(app, line);
    app.set_version_flag("-V,--version", "xpjconvert " VELA_VERSION, "Print the version");
    app.set_help_flag("-h,--help", "Print this help");
}

std::optional<int> ParseOptions(int argc, const char* const* argv, ToolOptions& options)
{
    CommandLine line;
    CLI::App app;
    AddOptions(app, line);
    try {
        std::vector<std::string> arguments = ArgumentsWithJobs(argc, argv);
        std::ranges::reverse(arguments); // as the parser takes them
        app.parse(std::move(arguments));
        Complete(app, line, options);
    } catch (const CLI::ParseError& end) {
        return app.exit(end) == 0 ? 0 : kWrongUsage;
    }
    return std::nullopt;
}

} // namespace XPJ

#include "xpjconvert/inspection.h"

#include "core/paths.h"
#include "frame/document_timelines.h"
#include "frame/media_path_changes.h"
#include "inspect/compare.h"
#include "inspect/effect_table.h"
#include "inspect/look_listing.h"
#include "inspect/media_list.h"
#include "inspect/summary.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "platform/files.h"
#include "report/account_report.h"
#include "report/page/page.h"
#include "tree/input.h"
#include "xpjconvert/closing_line.h"
#include "xpjconvert/print.h"
#include "xpjconvert/reports.h"

#include <filesystem>
#include <iostream>
#include <utility>

#include <fmt/format.h>

namespace XPJ {
namespace {

using namespace Inspection;

// Gives the exit status: lost output is no success.
int PrintAll(const std::string& text, int status)
{
    Print(text);
    const std::string loss = FlushPrinted();
    if (loss.empty())
        return status;
    PrintError(fmt::format("XPJConvert: the output could not be written: {}.\n", loss));
    return kUnexpectedError;
}

// False, after a message on the standard error, for what can't be read. A document that is cut off
// is used as far as it goes.
bool IsUsable(const std::string& path, const DocumentTimelines& read)
{
    if (read.result != kSuccess)
        PrintError(FailureLine(path, read.result, read.stop));
    else if (!read.stop.reason.empty())
        PrintError(fmt::format("XPJConvert: {}; only what came before was read.\n",
                               StopText(path, read.stop)));
    PrintError(EncodingLines(path, read.encoding));
    return read.result == kSuccess;
}

DocumentReading ReadingOf(const ToolOptions& options)
{
    return options.strict ? DocumentReading::ToTheLetter : DocumentReading::AsMeant;
}

const std::string& InputOf(const ToolOptions& options)
{
    return options.inputs.front();
}

// The file that a path on the command line stands for.
std::string PathOf(const std::string& input)
{
    return input == kStandardStream ? "/dev/stdin" : input;
}

std::string MediaListOf(const ToolOptions& options, const Project& project)
{
    const std::vector<ListedMedia> list = ListMedia(project, options.request.mediaPaths.get());
    if (options.mediaList == "json")
        return MediaListJson(list);
    return options.mediaList == "csv" ? MediaListCsv(list) : MediaListText(list);
}

std::string TextOfProject(const ToolOptions& options, const Project& project)
{
    switch (options.mode) {
    case ToolMode::Summary:
        return SummaryText(project, FileExists);
    case ToolMode::ListSequences:
        return options.json ? SequenceListJson(project) : SequenceListText(project);
    case ToolMode::ListMedia:
        return MediaListOf(options, project);
    default:
        return options.json ? TreeJson(project, FileExists) : TreeText(project, FileExists);
    }
}

int InspectLook(const ToolOptions& options, std::string_view bytes)
{
    CZvError error;
    const std::optional<LookFile> file =
        ReadLookFile(bytes, std::filesystem::path(InputOf(options)).filename().string(), error);
    if (file)
        return PrintAll(options.json ? LookFileJson(*file) : LookFileText(*file), kSuccess);
    const std::string place =
        error.line > 0 ? fmt::format("{}:{}:", error.line, error.column) : std::string();
    PrintError(fmt::format("XPJConvert: {}:{} {}\n", InputOf(options), place, error.message));
    return kNoFCPDataFound;
}

int Inspect(const ToolOptions& options)
{
    InputText text;
    DocumentTimelines read;
    CoreFile file;
    if (!file.Open(PathOf(InputOf(options)), false) || !text.Read(file)) {
        read.result = kInputCouldNotBeOpened;
        read.stop.reason = ErrorText(file.Error());
    } else if (IsLookFile(text.Bytes())) {
        return InspectLook(options, text.Bytes());
    } else {
        read = ReadTimelines(text.Bytes(), FolderOf(InputOf(options)), ReadingOf(options));
    }
    if (!IsUsable(InputOf(options), read))
        return read.result;
    return PrintAll(TextOfProject(options, read.project), kSuccess);
}

// A page draws both; other formats are those of the printed list.
std::string TextOfDifferences(const std::string& path, const ToolOptions& options,
                              const DocumentTimelines& a, const DocumentTimelines& b,
                              const std::vector<Difference>& differences)
{
    switch (FormatOfReport(path).value_or(ReportFormat::Text)) {
    case ReportFormat::Page:
        return PageText({.title = fmt::format("{} and {}", FileNameOf(InputOf(options)),
                                              FileNameOf(options.partner)),
                         .first = &a.project,
                         .second = &b.project,
                         .differences = differences});
    case ReportFormat::Json:
        return DifferencesJson(differences);
    default:
        return DifferencesText(differences);
    }
}

// What is wrong with the reports; empty if nothing is.
std::string ProblemOfReports(const ToolOptions& options)
{
    const std::string replacing = ReportOverFile(options, {InputOf(options), options.partner});
    if (!replacing.empty())
        return fmt::format("XPJConvert: the report {} would replace an input.\n", replacing);
    for (const std::string& path : options.reports)
        if (FormatOfReport(path) == ReportFormat::Csv)
            return fmt::format("XPJConvert: {}: differences are no table; .txt, .json and .html "
                               "can list them.\n",
                               path);
    return {};
}

int CompareFiles(const ToolOptions& options)
{
    if (const std::string problem = ProblemOfReports(options); !problem.empty()) {
        PrintError(problem);
        return kWrongUsage;
    }
    auto [a, b] = ReadForComparison(DocumentFile(PathOf(InputOf(options))),
                                    DocumentFile(PathOf(options.partner)), ReadingOf(options));
    if (!IsUsable(InputOf(options), a))
        return a.result;
    if (!IsUsable(options.partner, b))
        return b.result;
    if (options.request.mediaPaths)
        ChangeMediaPaths(*options.request.mediaPaths, a.project);
    std::vector<Difference> differences = Compare(a.project, b.project);
    options.ignored.RemoveFrom(differences);
    std::string problems;
    for (const std::string& path : options.reports)
        problems += WriteReportFile(path, TextOfDifferences(path, options, a, b, differences));
    PrintError(problems);
    const int status = differences.empty() ? kSuccess : kDifferent;
    return PrintAll(options.json ? DifferencesJson(differences) : DifferencesText(differences),
                    problems.empty() ? status : kUnexpectedError);
}

} // namespace

int RunInspection(const ToolOptions& options)
{
    std::cout.setstate(std::ios::failbit); // the readers' diagnostics for developers
    switch (options.mode) {
    case ToolMode::ListEffects:
        return PrintAll(EffectListText(), kSuccess);
    case ToolMode::Compare:
        return CompareFiles(options);
    default:
        return Inspect(options);
    }
}

} // namespace XPJ

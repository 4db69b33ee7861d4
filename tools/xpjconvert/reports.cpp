#include "xpjconvert/reports.h"

#include "core/paths.h"
#include "frame/document_timelines.h"
#include "platform/atomic_file.h"
#include "report/account_report.h"
#include "report/page/page.h"
#include "report/report.h"
#include "xpjconvert/print.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

#include <fmt/chrono.h>
#include <fmt/format.h>

namespace XPJ {

namespace {

std::string ResultText(int result)
{
    constexpr std::string_view kTexts[] = {"success",
                                           "aborted",
                                           "no FCP data found",
                                           "out of memory",
                                           "no xmeml data found",
                                           "the input could not be opened",
                                           "unexpected error"};
    static_assert(std::size(kTexts) == kUnexpectedError + 1);
    return std::string(kTexts[std::clamp<int>(result, kSuccess, kUnexpectedError)]);
}

// "out/cut.vlproj" -> "out/cut.report"
std::string BaseBeside(const std::string& outputPath, const std::string& folder)
{
    const std::filesystem::path output(outputPath);
    const std::filesystem::path parent =
        folder.empty() ? output.parent_path() : std::filesystem::path(folder);
    return (parent / output.stem()).string() + ".report";
}

} // namespace

std::string Reports::Reserve()
{
    for (const std::string& path : options_.reports)
        if (path != "-")
            return AtomicFile(path).IsOpen() ? AbsolutePath(path) : std::string();
    const bool hasFile = request_.writeTo.empty(); // that the report can be beside
    if (!options_.reports.empty() || (!hasFile && options_.reportFolder.empty()))
        return {};
    if (!options_.reportFolder.empty()) {
        std::error_code error; // a folder that can't be made can't hold the file either
        std::filesystem::create_directories(options_.reportFolder, error);
    }
    CoreFile file;
    reserved_ = MakeUniqueFileName(
        AbsolutePath(BaseBeside(request_.outputPath, options_.reportFolder)), "txt", file);
    return reserved_;
}

std::string Reports::Write(ConversionOutcome& outcome)
{
    const bool isNeeded = outcome.result == kSuccess && !outcome.account.remarks.empty();
    if (isNeeded && outcome.reportPath.empty())
        outcome.reportPath = Reserve();
    std::string problems;
    for (const std::string& path : options_.reports) {
        const std::string problem = WriteReportFile(path, TextOf(path, outcome));
        if (!problem.empty() && AbsolutePath(path) == outcome.reportPath)
            outcome.reportPath.clear();
        problems += problem;
    }
    if (!reserved_.empty())
        problems += WriteReportFile(reserved_, TextOf(reserved_, outcome));
    return problems;
}

std::string WriteReportFile(const std::string& path, const std::string& text)
{
    if (path == "-") {
        Print(text);
        return {};
    }
    AtomicFile output(path);
    std::size_t written = 0;
    if (output.IsOpen() && output.File().Write(text.data(), text.size(), written) &&
        output.Commit())
        return {};
    return fmt::format("XPJConvert: {}: the report could not be written: {}.\n", path,
                       output.Reason());
}

std::string Reports::TextOf(const std::string& path, const ConversionOutcome& outcome) const
{
    const ReportHeader header{
        .tool = "xpjconvert " VELA_VERSION,
        .date = fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(std::time(nullptr))),
        .input = request_.inputPath,
        .output = outcome.result == kSuccess ? request_.outputPath : "",
        .result = ResultText(outcome.result)};
    switch (FormatOfReport(path).value_or(ReportFormat::Text)) {
    case ReportFormat::Json:
        return AccountJson(header, outcome.account);
    case ReportFormat::Csv:
        return AccountCsv(outcome.account);
    case ReportFormat::Page:
        return PageOf(AccountJson(header, outcome.account));
    case ReportFormat::Text:
        break;
    }
    return AccountText(header, outcome.account);
}

// What was read, with what became of it.
std::string Reports::PageOf(const std::string& accountJson) const
{
    const DocumentTimelines read = ReadTimelinesOfFile(
        {request_.readFrom.empty() ? request_.inputPath : request_.readFrom,
         FolderOf(request_.inputPath)},
        options_.strict ? DocumentReading::ToTheLetter : DocumentReading::AsMeant);
    return PageText({.title = std::string(FileNameOf(request_.inputPath)),
                     .accountJson = accountJson,
                     .first = &read.project});
}

std::string ReportOverFile(const ToolOptions& options,
                           std::initializer_list<std::string_view> files)
{
    const auto place = [](std::string_view path) {
        std::error_code error;
        return std::filesystem::weakly_canonical(path, error);
    };
    for (const std::string& report : options.reports)
        for (const std::string_view file : files)
            if (report != "-" && file != "-" && !place(report).empty() &&
                place(report) == place(file))
                return report;
    return {};
}

bool HasFailure(const ToolOptions& options, const ConversionOutcome& outcome)
{
    const bool isCutOff = !outcome.stop.reason.empty();
    if (options.failOn.contains("any") && (isCutOff || !outcome.account.remarks.empty()))
        return true;
    if (options.failOn.contains("cut-off") && isCutOff)
        return true;
    return std::ranges::any_of(outcome.account.remarks, [&options](const Remark& remark) {
        return options.failOn.contains(std::string(OutcomeText(RowOf(remark.kind).outcome)));
    });
}

} // namespace XPJ

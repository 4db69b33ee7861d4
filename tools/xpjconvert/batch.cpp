#include "xpjconvert/batch.h"

#include "media/media_paths.h"
#include "platform/files.h"
#include "xpjconvert/batch_plan.h"
#include "xpjconvert/batch_progress.h"
#include "xpjconvert/batch_summary.h"
#include "xpjconvert/conversion_process.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/print.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>
#include <thread>
#include <unordered_set>
#include <utility>

#include <fmt/format.h>
#include <sys/wait.h>

namespace XPJ {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

bool IsOutdated(const std::string& output, const std::string& input)
{
    std::error_code error;
    const fs::file_time_type written = fs::last_write_time(output, error);
    const fs::file_time_type changed = fs::last_write_time(input, error);
    return error || written < changed;
}

std::size_t ProcessesOf(const BatchOptions& options)
{
    if (options.jobs != 0)
        return options.jobs;
    return std::max(1U, std::thread::hardware_concurrency());
}

class Batch {
public:
    explicit Batch(const ToolOptions& options)
        : options_(options), processes_(ProcessesOf(options.batch)), progress_(options.quiet),
          summary_(options.batch.summary)
    {
    }

    int Run();

private:
    void Plan();
    void StartNext();
    void Start(const ConversionProcess::Task& task);
    bool IsToConvert(const ConversionProcess::Task& task);
    std::string OutputOf(const PlannedDocument& planned, std::string_view extension) const;
    ToolOptions OptionsFor(const PlannedDocument& planned, const std::string& outputPath) const;
    void CollectEnded();
    void Finish(const BatchRow& row);
    void Reject(const ConversionProcess::Task& task, RowResult result, const std::string& reason);
    int Close();

    const ToolOptions& options_;
    const std::size_t processes_;
    std::vector<PlannedDocument> documents_;
    std::size_t next_ = 0; // of them
    std::vector<std::unique_ptr<ConversionProcess>> running_;
    // Inputs, and outputs so far: what no further output may replace.
    std::unordered_set<std::string> taken_;
    bool hasProblems_ = false; // with what the command line names
    BatchTotals totals_;
    ChildSignal childSignal_;
    Lifeline lifeline_;
    BatchProgress progress_;
    BatchSummary summary_;
};

int Batch::Run()
{
    if (!summary_.IsGood()) {
        PrintError(fmt::format("XPJConvert: {}: the summary could not be written: {}.\n",
                               options_.batch.summary, summary_.Reason()));
        return kUnexpectedError;
    }
    CatchInterrupts();
    Plan();
    while (next_ < documents_.size() || !running_.empty()) {
        if (IsInterrupted())
            lifeline_.Close();
        while (!IsInterrupted() && next_ < documents_.size() && running_.size() < processes_)
            StartNext();
        if (running_.empty())
            break;
        progress_.Show(totals_, running_.size());
        childSignal_.Wait(100ms);
        CollectEnded();
    }
    const int status = Close();
    ReleaseInterrupts();
    return status;
}

void Batch::Plan()
{
    std::string problems;
    documents_ = PlanBatch(options_, ExpandInputs(options_, problems));
    PrintError(problems);
    hasProblems_ = !problems.empty();
    for (const PlannedDocument& planned : documents_) // also those of other parts
        taken_.insert(RealPath(planned.document.path));
    if (options_.batch.part)
        std::erase_if(documents_, [&part = *options_.batch.part](const PlannedDocument& planned) {
            return !IsInPart(planned, part);
        });
    totals_.documents = documents_.size();
    if (options_.request.mediaPaths)
        options_.request.mediaPaths->WalkFolders(IsInterrupted);
}

void Batch::StartNext()
{
    const PlannedDocument& planned = documents_[next_++];
    const InputDocument& document = planned.document;
    const Format& from = FormatOfDocument(options_, document.path, document.path);
    const std::string output = OutputOf(planned, ExtensionToWrite(options_, from));
    const ConversionProcess::Task task{OptionsFor(planned, output), document, output};
    if (options_.to == &from)
        Reject(task, RowResult::Skipped, fmt::format("it is a {} already", from.name));
    else if (IsToConvert(task))
        Start(task);
}

std::string Batch::OutputOf(const PlannedDocument& planned, std::string_view extension) const
{
    return (fs::path(options_.output) / planned.outputStem).string().append(".").append(extension);
}

// Reports are named after the output, and mirror the folders as it does.
ToolOptions Batch::OptionsFor(const PlannedDocument& planned, const std::string& outputPath) const
{
    ToolOptions options = options_;
    options.quiet = true; // lines of several documents at once would be mixed
    std::string base = outputPath;
    if (!options_.reportFolder.empty()) {
        const fs::path folder =
            fs::path(options_.reportFolder) / fs::path(planned.outputStem).parent_path();
        options.reportFolder = folder.string();
        base = (folder / fs::path(outputPath).filename()).string();
    }
    for (const std::string& format : options_.batch.reportFormats)
        options.reports.push_back(fmt::format("{}.report.{}", base, format));
    return options;
}

// What needs no conversion, or must not be overwritten, is a row of its own.
bool Batch::IsToConvert(const ConversionProcess::Task& task)
{
    const std::string& output = task.outputPath;
    if (!taken_.insert(RealPath(output)).second) {
        Reject(task, RowResult::Failed,
               fmt::format("the output {} is another document of this batch", output));
        return false;
    }
    if (options_.batch.overwrite || !FileExists(output))
        return true;
    if (options_.batch.skipExisting) {
        if (IsOutdated(output, task.document.path))
            return true;
        Reject(task, RowResult::Skipped, fmt::format("{} is up to date", output));
        return false;
    }
    if (options_.dryRun)
        return true;
    Reject(task, RowResult::Failed,
           fmt::format("{} exists; --overwrite replaces it, --skip-existing keeps it", output));
    return false;
}

void Batch::Reject(const ConversionProcess::Task& task, RowResult result, const std::string& reason)
{
    if (result == RowResult::Failed) {
        progress_.Hide();
        PrintError(fmt::format("XPJConvert: {}: {}.\n", task.document.path, reason));
    }
    Finish({.input = task.document.path,
            .output = task.outputPath,
            .result = result,
            .status = result == RowResult::Failed ? kUnexpectedError : kSuccess,
            .message = reason});
}

void Batch::Start(const ConversionProcess::Task& task)
{
    std::error_code error;
    if (!options_.dryRun)
        fs::create_directories(fs::path(task.outputPath).parent_path(), error);
    if (!options_.batch.reportFormats.empty() && !task.options.reportFolder.empty())
        fs::create_directories(task.options.reportFolder, error);
    for (;;) {
        auto process = std::make_unique<ConversionProcess>(task);
        if (process->Start(childSignal_, lifeline_)) {
            running_.push_back(std::move(process));
            return;
        }
        const int reason = errno;
        process.reset();
        if (running_.empty()) {
            Reject(task, RowResult::Failed,
                   fmt::format("no process could be started: {}", ErrorText(reason)));
            return;
        }
        childSignal_.Wait(100ms); // for the end of one that has what this one lacks
        CollectEnded();
    }
}

void Batch::CollectEnded()
{
    int waitStatus = 0;
    rusage usage{};
    pid_t id = 0;
    while ((id = ::wait4(-1, &waitStatus, WNOHANG, &usage)) > 0) {
        const auto ended =
            std::ranges::find_if(running_, [id](const auto& one) { return one->Id() == id; });
        if (ended == running_.end())
            continue;
        const std::unique_ptr<ConversionProcess> process = std::move(*ended);
        running_.erase(ended);
        const BatchRow row = process->RowOf(waitStatus, usage);
        const std::string errors =
            row.result == RowResult::Aborted ? std::string() : process->Errors();
        const std::string printed = options_.quiet ? std::string() : process->Printed();
        if (!errors.empty() || !printed.empty())
            progress_.Hide();
        PrintError(errors);
        if (row.result == RowResult::Failed && (errors.empty() || WIFSIGNALED(waitStatus)))
            PrintError(fmt::format("XPJConvert: {}: {}.\n", row.input, row.message));
        Print(printed);
        Finish(row);
    }
}

void Batch::Finish(const BatchRow& row)
{
    totals_.Add(row);
    summary_.Add(row);
}

int Batch::Close()
{
    progress_.Hide();
    int status = kSuccess;
    if (totals_.withLosses > 0)
        status = kLossesFound;
    if (totals_.failed > 0 || hasProblems_)
        status = kSomeFailed;
    if (!summary_.Finish(totals_)) {
        PrintError(fmt::format("XPJConvert: {}: the summary could not be written: {}.\n",
                               options_.batch.summary, summary_.Reason()));
        status = status == kSuccess ? kUnexpectedError : status;
    }
    Print(ClosingLineOf(totals_, options_.dryRun));
    return status;
}

} // namespace

bool IsBatch(const ToolOptions& options)
{
    const auto isSeveral = [](const std::string& input) {
        std::error_code error;
        return (input.starts_with('@') && !FileExists(input)) || fs::is_directory(input, error);
    };
    return options.batch.isRequested || options.inputs.size() > 1 ||
           std::ranges::any_of(options.inputs, isSeveral);
}

int ConvertBatch(const ToolOptions& options)
{
    const bool printsDocuments = options.output == kStandardStream;
    if (printsDocuments || !options.reports.empty()) {
        PrintError(printsDocuments
                       ? "XPJConvert: -o names the folder for the outputs of several documents.\n"
                       : "XPJConvert: --report names the report of one document; of several "
                         "--report-format gives each its own.\n");
        return kWrongUsage;
    }
    std::error_code error;
    if (!options.dryRun && !options.output.empty())
        fs::create_directories(options.output, error);
    if (error) {
        PrintError(fmt::format("XPJConvert: {}: {}.\n", options.output, error.message()));
        return kUnexpectedError;
    }
    return Batch(options).Run();
}

} // namespace XPJ

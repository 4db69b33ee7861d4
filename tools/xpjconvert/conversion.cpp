#include "xpjconvert/conversion.h"
#include "core/paths.h"
#include "frame/conversion_operation.h"
#include "frame/export_operation.h"
#include "frame/stream_buffers.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/progress_display.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <set>

namespace XPJ {
namespace {

using namespace std::chrono_literals;

constexpr auto kLookInterval = 50ms;
constexpr int kLooksPerShow = 5; // progress each 250 ms

// The reports that lie in a folder, by path.
std::set<std::string> ReportsIn(const std::string& folder)
{
    const std::string start = GetMessage(Message::kTranslationResults) + " ";
    std::set<std::string> reports;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(start))
            reports.insert(folder + name);
    }
    return reports;
}

// The one that `before` doesn't hold.
std::string NewReport(const std::string& folder, const std::set<std::string>& before)
{
    for (const std::string& report : ReportsIn(folder))
        if (!before.contains(report))
            return report;
    return {};
}

bool RunToEnd(Operation& operation, bool quiet)
{
    ProgressDisplay display(quiet);
    if (!operation.Start())
        return false;
    for (int look = 1; !operation.WaitFor(kLookInterval); ++look) {
        if (IsInterrupted())
            operation.Cancel();
        if (look % kLooksPerShow == 0)
            display.Show(operation.GetProgress());
    }
    return true;
}

ConversionOutcome Run(Operation& operation, const std::string& reportFolder, bool quiet)
{
    const std::set<std::string> earlierReports = ReportsIn(reportFolder);
    ConversionOutcome outcome;
    outcome.result = kUnexpectedError;
    if (!RunToEnd(operation, quiet))
        return outcome;
    outcome.result = operation.GetResult();
    outcome.issues = operation.GetIssues();
    outcome.stop = operation.GetReadStop();
    if (!outcome.issues.empty())
        outcome.reportPath = NewReport(reportFolder, earlierReports);
    return outcome;
}

ConversionOutcome Import(const ToolOptions& options, std::ostream& output)
{
    ConversionOperation operation(options.input, output, false, false);
    return Run(operation, GetPlatform().DocumentsFolder(), options.quiet);
}

ConversionOutcome Export(const ToolOptions& options, std::ostream& output)
{
    std::ifstream input(options.input, std::ios::binary);
    VelaToFCPXOperation operation(
        input, {"Vela Project", options.output, options.handoff, options.sequenceGuid}, output);
    ConversionOutcome outcome =
        Run(operation, std::string(FolderOf(options.output)), options.quiet);
    if (input.bad()) // what could be read may look whole, but isn't
        outcome.result = kInputCouldNotBeOpened;
    return outcome;
}

} // namespace

ConversionOutcome RunConversion(Direction direction, const ToolOptions& options)
{
    AtomicFile file(options.output);
    FileWriterBuf buffer(file.File());
    std::ostream stream(&buffer);
    ConversionOutcome outcome =
        direction == Direction::Import ? Import(options, stream) : Export(options, stream);
    if (outcome.result == kSuccess && !file.Commit()) {
        outcome.outputLost = true;
        outcome.result = kUnexpectedError;
    }
    return outcome;
}

} // namespace XPJ

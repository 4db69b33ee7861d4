#include "frame/console.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "frame/conversion_operation.h"
#include "frame/export_operation.h"
#include "report/report.h"
#include "frame/stream_buffers.h"
#include "platform/atomic_file.h"

#include <atomic>
#include <cerrno>
#include <istream>
#include <iterator>
#include <ostream>
#include <thread>

namespace XPJ {

namespace {

using namespace std::chrono_literals;

constexpr auto kLookInterval = 50ms;
constexpr int kLooksPerShow = 5; // progress each 250 ms

// By ConversionResult.
constexpr std::string_view kResultLines[] = {
    "",
    "The operation was aborted.",
    "No FCP data found in input file.",
    "The converter ran out of memory.",
    "No xmeml data found in input file.",
    "The input file could not be opened.",
    "An unexpected error occurred.",
};
static_assert(std::size(kResultLines) == kUnexpectedError + 1);

// An output file and the stream on it.
class OutputFile {
public:
    OutputFile(const std::string& path, StopCheck wantsStop)
        : file_(path, std::move(wantsStop)), buffer_(file_.File())
    {
    }
    std::ostream& Stream() { return stream_; }
    bool Commit() { return file_.Commit(); }
    bool WasStopped() { return file_.File().Error() == ECANCELED; }
    std::string Reason() const { return file_.Reason(); }

private:
    AtomicFile file_;
    FileWriterBuf buffer_;
    std::ostream stream_{&buffer_};
};

// The watcher's wish to stop. He is asked on his own thread alone; a worker sees what he said last.
class StopWish {
public:
    explicit StopWish(const ProgressWatch& watch) : watch_(watch) {}
    bool Ask()
    {
        if (!isWished_ && watch_.wantsStop && watch_.wantsStop())
            isWished_ = true;
        return isWished_;
    }
    // For files, whichever thread uses them.
    StopCheck Check()
    {
        return [this, watcher = std::this_thread::get_id()] {
            return std::this_thread::get_id() == watcher ? Ask() : isWished_.load();
        };
    }

private:
    const ProgressWatch& watch_;
    std::atomic<bool> isWished_ = false;
};

// False when the operation could not be started.
bool RunToEnd(Operation& operation, const ProgressWatch& watch, StopWish& stop)
{
    if (!operation.Start())
        return false;
    for (int look = 1; !operation.WaitFor(kLookInterval); ++look) {
        if (stop.Ask())
            operation.Cancel();
        if (watch.show && look % kLooksPerShow == 0)
            watch.show(operation.GetProgress());
    }
    return true;
}

FileConversion Outcome(Operation& operation, OutputFile& output)
{
    FileConversion outcome;
    outcome.result = operation.GetResult();
    outcome.issues = operation.GetIssues();
    outcome.skipped = operation.GetSkipped();
    outcome.stop = operation.GetReadStop();
    outcome.reportPath = operation.GetReportPath();
    outcome.lacksSequence = operation.LacksSequence();
    if (output.WasStopped()) {
        outcome.result = kAborted;
    } else if (outcome.result == kSuccess && !output.Commit()) {
        outcome.outputLost = true;
        outcome.lossReason = output.Reason();
        outcome.result = kUnexpectedError;
    }
    return outcome;
}

FileConversion EndedWith(int result)
{
    FileConversion outcome;
    outcome.result = result;
    return outcome;
}

ProgressWatch PrintProgress(std::ostream& out)
{
    return {.show = [&out](double progress) {
        out << "Progress: " << DoubleToString(progress * 100) << "%\n" << std::flush;
    }};
}

void PrintResult(int result, std::ostream& out)
{
    if (result > kSuccess && result <= kUnexpectedError)
        out << "XPJConvert: " << kResultLines[result] << "\n" << std::flush;
}

int ConvertProjectFile(const ConsoleArguments& arguments, std::ostream& out)
{
    if (arguments.vl2snMode)
        out << "Processing for Sonara consumption...\n";
    ExportFileJob job;
    job.inputPath = arguments.inputPath;
    job.outputPath = arguments.outputPath.empty()
                         ? OutputNameOf(arguments.inputPath, ".vlproj", ".xml")
                         : arguments.outputPath;
    job.vl2snMode = arguments.vl2snMode;
    job.sequenceGuid = arguments.sequenceGuid;
    const FileConversion outcome = ExportFile(job, PrintProgress(out));
    out << IssueReportText(outcome.issues, Direction::Export) << std::flush;
    return outcome.result;
}

} // namespace

FileConversion ImportFile(const ImportFileJob& job, const ProgressWatch& watch)
{
    StopWish stop(watch);
    OutputFile output(job.outputPath, stop.Check());
    if (output.WasStopped())
        return EndedWith(kAborted);
    ConversionOperation operation(
        {job.inputPath, job.sn2vlMode, job.aafSupport, job.listsReport, job.reportNames},
        output.Stream());
    if (!RunToEnd(operation, watch, stop))
        return EndedWith(kUnexpectedError);
    return Outcome(operation, output);
}

FileConversion ExportFile(const ExportFileJob& job, const ProgressWatch& watch)
{
    StopWish stop(watch);
    OutputFile output(job.outputPath, stop.Check());
    if (output.WasStopped())
        return EndedWith(kAborted);
    CoreFile file;
    file.StopWhen(stop.Check());
    FileReaderBuf buffer(file);
    std::istream input(&buffer);
    if (!file.Open(job.inputPath, false))
        input.setstate(std::ios::failbit);
    VelaToFCPXOperation operation(input,
                                  {.projectTitle = job.projectTitle,
                                   .outputPath = job.outputPath,
                                   .vl2snMode = job.vl2snMode,
                                   .sequenceGuid = job.sequenceGuid,
                                   .reportFolder = job.reportFolder,
                                   .needsSequence = job.sequenceGuid != kZeroGuid,
                                   .reportNames = job.reportNames},
                                  output.Stream());
    if (!RunToEnd(operation, watch, stop))
        return EndedWith(kUnexpectedError);
    if (file.Error() != 0) {
        // What could be read may look whole, but isn't.
        FileConversion outcome =
            EndedWith(file.Error() == ECANCELED ? kAborted : kInputCouldNotBeOpened);
        outcome.stop.reason = ErrorText(file.Error());
        return outcome;
    }
    return Outcome(operation, output);
}

std::string OutputNameOf(std::string_view inputPath, std::string_view extension,
                         std::string_view newExtension)
{
    const std::string_view name = FileNameOf(inputPath);
    return std::string(name.substr(0, name.find(extension))).append(newExtension);
}

int ConvertFile(const std::string& inputPath, const std::string& outputPath, bool aafSupport,
                std::ostream& out)
{
    ImportFileJob job;
    job.inputPath = inputPath;
    job.outputPath = outputPath.empty() ? OutputNameOf(inputPath, ".xml", ".vlproj") : outputPath;
    job.aafSupport = aafSupport;
    const FileConversion outcome = ImportFile(job, PrintProgress(out));
    out << IssueReportText(outcome.issues, Direction::Import) << std::flush;
    return outcome.result;
}

int ConvertByExtension(const ConsoleArguments& arguments, std::ostream& out)
{
    const std::string_view extension = ExtensionOf(arguments.inputPath);
    if (extension.empty()) {
        out << "XPJConvert: Input file " << arguments.inputPath
            << " appears to lack a file extension, unable to determine file type.\n";
        return kInputCouldNotBeOpened;
    }
    int result = kInputCouldNotBeOpened;
    if (extension == "xml") {
        result = ConvertFile(arguments.inputPath, arguments.outputPath, arguments.aafSupport, out);
    } else if (extension == "vlproj") {
        result = ConvertProjectFile(arguments, out);
    } else {
        out << "XPJConvert: Unrecognized file extension: " << extension
            << " (.xml or .vlproj expected).\n";
        return result;
    }
    PrintResult(result, out);
    return result;
}

} // namespace XPJ

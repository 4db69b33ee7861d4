#include "frame/console.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "frame/conversion_operation.h"
#include "frame/export_operation.h"
#include "frame/report.h"
#include "frame/stream_buffers.h"

#include <fstream>
#include <iterator>
#include <ostream>

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
    explicit OutputFile(const std::string& path) : file_(path), buffer_(file_.File()) {}
    std::ostream& Stream() { return stream_; }
    bool Commit() { return file_.Commit(); }

private:
    AtomicFile file_;
    FileWriterBuf buffer_;
    std::ostream stream_{&buffer_};
};

// False when the operation could not be started.
bool RunToEnd(Operation& operation, const ProgressWatch& watch)
{
    if (!operation.Start())
        return false;
    for (int look = 1; !operation.WaitFor(kLookInterval); ++look) {
        if (watch.wantsStop && watch.wantsStop())
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
    outcome.leftOut = operation.GetLeftOut();
    outcome.stop = operation.GetReadStop();
    outcome.reportPath = operation.GetReportPath();
    if (outcome.result == kSuccess && !output.Commit()) {
        outcome.outputLost = true;
        outcome.result = kUnexpectedError;
    }
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
    OutputFile output(job.outputPath);
    ConversionOperation operation(job.inputPath, output.Stream(), job.sn2vlMode, job.aafSupport);
    if (!RunToEnd(operation, watch))
        return {};
    return Outcome(operation, output);
}

FileConversion ExportFile(const ExportFileJob& job, const ProgressWatch& watch)
{
    std::ifstream input(job.inputPath, std::ios::binary);
    OutputFile output(job.outputPath);
    VelaToFCPXOperation operation(
        input,
        {job.projectTitle, job.outputPath, job.vl2snMode, job.sequenceGuid, job.reportFolder},
        output.Stream());
    if (!RunToEnd(operation, watch))
        return {};
    if (input.bad()) {
        // What could be read may look whole, but isn't.
        FileConversion outcome;
        outcome.result = kInputCouldNotBeOpened;
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

// xpjconvert INPUT [OUTPUT]: converts one document, in the direction that its extension gives.
#include "core/conversion_result.h"
#include "core/paths.h"
#include "frame/console.h"
#include "report/report.h"
#include "platform/default_platform.h"
#include "xpjconvert/closing_line.h"
#include "xpjconvert/conversion.h"
#include "xpjconvert/inspection.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/options.h"
#include "xpjconvert/print.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include <fmt/format.h>

namespace {

using namespace XPJ;

void PreparePlatform(const ToolOptions& options, DefaultPlatform& platform)
{
    if (options.seed)
        platform.SeedGuids(*options.seed);
    for (const auto& [key, value] : options.debugEntries)
        platform.SetDebugEntry(key, value);
    if (!options.reportFolder.empty()) {
        std::error_code error; // without a folder, the closing line says that there is no report
        std::filesystem::create_directories(options.reportFolder, error);
        platform.SetReportFolder(options.reportFolder);
    }
}

// The report's text, with this system's line ends, and what no finding stands for.
void PrintLosses(const FileConversion& outcome, Direction direction)
{
    std::string text = IssueReportText(outcome.issues, direction, NameForm::Plain);
    std::erase(text, '\r');
    Print(text);
    Print(SkippedText(outcome.skipped));
}

int Convert(Direction direction, ToolOptions& options)
{
    if (options.output.empty())
        options.output = direction == Direction::Import
                             ? OutputNameOf(options.input, ".xml", ".vlproj")
                             : OutputNameOf(options.input, ".vlproj", ".xml");
    std::error_code error;
    if (std::filesystem::equivalent(options.input, options.output, error)) {
        PrintError(
            fmt::format("XPJConvert: {}: input and output are the same file.\n", options.input));
        return kWrongUsage;
    }
    if (options.handoff)
        Print("Processing for Sonara consumption...\n");

    CatchInterrupts();
    const FileConversion outcome = RunConversion(direction, options);
    ReleaseInterrupts();
    if (!options.quiet)
        PrintLosses(outcome, direction);
    if (outcome.result == kSuccess) {
        PrintError(CutOffLine(options, outcome));
        Print(SuccessLine(options.output, outcome));
    } else {
        PrintError(FailureLine(options, outcome));
    }
    // The conversion stands, whoever hears of it.
    if (const std::string loss = FlushPrinted(); !loss.empty())
        PrintError(
            fmt::format("XPJConvert: the standard output could not be written: {}.\n", loss));
    return outcome.result;
}

int Run(int argc, char** argv)
{
    ToolOptions options;
    if (const std::optional<int> status = ParseOptions(argc, argv, options))
        return *status;

    if (const std::optional<int> status = RunInspection(options))
        return *status;
    const std::string_view extension = ExtensionOf(options.input);
    if (extension != "xml" && extension != "vlproj") {
        // The dispatcher has the words.
        ConvertByExtension({.inputPath = options.input, .outputPath = options.output}, std::cerr);
        return kWrongUsage;
    }
    const Direction direction = extension == "xml" ? Direction::Import : Direction::Export;
    if (direction == Direction::Import && (options.handoff || options.sequenceGuid != kZeroGuid)) {
        PrintError("XPJConvert: --sequence and --handoff are for .vlproj input.\n");
        return kWrongUsage;
    }

    if (options.quiet)
        std::cout.setstate(std::ios::failbit); // the readers' diagnostics for developers
    DefaultPlatform platform;
    PreparePlatform(options, platform);
    const PlatformScope scope(platform);
    return Convert(direction, options);
}

} // namespace

int main(int argc, char** argv)
{
    HoldStandardStreams();
    int status = kUnexpectedError;
    try {
        status = Run(argc, argv);
    } catch (const std::bad_alloc&) {
        PrintError("XPJConvert: The converter ran out of memory.\n");
        status = kOutOfMemory;
    } catch (const std::exception& error) {
        PrintError("XPJConvert: An unexpected error occurred. (");
        PrintError(error.what());
        PrintError(")\n");
    }
    EndByInterrupt();
    return status;
}

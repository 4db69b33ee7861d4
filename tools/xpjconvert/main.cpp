// xpjconvert INPUT [OUTPUT]: converts one document, in the direction of its extension.
#include "frame/console.h"
#include "frame/file_conversion.h"
#include "frame/verification.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "report/remark_groups.h"
#include "xpjconvert/closing_line.h"
#include "xpjconvert/inspection.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/options.h"
#include "xpjconvert/print.h"
#include "xpjconvert/progress_display.h"
#include "xpjconvert/reports.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include <fmt/format.h>

namespace {

using namespace XPJ;

// Shows the progress; Ctrl-C stops the conversion.
ConversionOutcome ConvertUnderDisplay(const ConversionRequest& request, bool quiet)
{
    ProgressDisplay display(quiet);
    return ConvertFiles(request, {.show = [&display](double progress) { display.Show(progress); },
                                  .wantsStop = IsInterrupted});
}

void PreparePlatform(const ToolOptions& options, DefaultPlatform& platform)
{
    if (options.seed)
        platform.SeedGuids(*options.seed);
    if (!options.strict)
        platform.SetDebugEntry("FCP.OpenInterchange", "true");
    for (const auto& [key, value] : options.debugEntries)
        platform.SetDebugEntry(key, value);
}

// What did not arrive as it was: as many groups as fit on a screen.
void PrintLosses(const ConversionOutcome& outcome)
{
    constexpr std::size_t kGroups = 7;
    Print(GroupText(GroupRemarks(outcome.account.remarks), kGroups));
}

int Convert(const ToolOptions& options, ConversionRequest& request)
{
    std::error_code error;
    if (std::filesystem::equivalent(request.inputPath, request.outputPath, error)) {
        PrintError(fmt::format("XPJConvert: {}: input and output are the same file.\n",
                               request.inputPath));
        return kWrongUsage;
    }
    if (request.handOff.value_or(false))
        Print("Processing for Sonara consumption...\n");

    Reports reports(options, request);
    request.reserveReport = [&reports] { return reports.Reserve(); };
    CatchInterrupts();
    ConversionOutcome outcome = ConvertUnderDisplay(request, options.quiet);
    ReleaseInterrupts();
    if (options.verify && outcome.result == kSuccess)
        AddUnexplained(ReadForComparison(request.inputPath, request.outputPath,
                                         options.strict ? DocumentReading::ToTheLetter
                                                        : DocumentReading::AsMeant),
                       request.markLosses, outcome.account);
    const std::string problems = reports.Write(outcome);
    if (!options.quiet)
        PrintLosses(outcome);
    if (outcome.result == kSuccess) {
        PrintError(CutOffLine(request, outcome));
        Print(SuccessLine(request, outcome, options.verify));
    } else {
        PrintError(FailureLine(request, outcome));
    }
    PrintError(problems);
    // The conversion itself has succeeded or not, whatever becomes of this output.
    if (const std::string loss = FlushPrinted(); !loss.empty())
        PrintError(
            fmt::format("XPJConvert: the standard output could not be written: {}.\n", loss));
    return outcome.result == kSuccess && HasFailure(options, outcome) ? kLossesFound
                                                                      : outcome.result;
}

// What the command line doesn't state itself.
void CompleteRequest(const ToolOptions& options, ConversionRequest& request)
{
    if (request.outputPath.empty())
        request.outputPath = DefaultOutputName(request);
    request.listsReport = !options.seed; // its name and folder don't follow from the input
}

int Run(int argc, char** argv)
{
    ToolOptions options;
    if (const std::optional<int> status = ParseOptions(argc, argv, options))
        return *status;
    if (const std::optional<int> status = RunInspection(options))
        return *status;

    ConversionRequest& request = options.request;
    if (!SetFormatsByExtension(request)) {
        ConvertByExtension(request, std::cerr); // which prints the reason
        return kWrongUsage;
    }
    if (DirectionOf(request) == Direction::Import &&
        (request.handOff || request.sequenceGuid != kZeroGuid)) {
        PrintError("XPJConvert: --sequence and --handoff are for .vlproj input.\n");
        return kWrongUsage;
    }
    if (options.quiet)
        std::cout.setstate(std::ios::failbit); // the readers' diagnostics for developers
    DefaultPlatform platform;
    PreparePlatform(options, platform);
    const PlatformScope scope(platform);
    CompleteRequest(options, request);
    return Convert(options, request);
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

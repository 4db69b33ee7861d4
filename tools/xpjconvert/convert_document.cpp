#include "xpjconvert/convert_document.h"

#include "core/paths.h"
#include "frame/file_conversion.h"
#include "frame/media_path_changes.h"
#include "frame/otio_conversion.h"
#include "frame/verification.h"
#include "platform/default_platform.h"
#include "platform/platform.h"
#include "report/remark_groups.h"
#include "xpjconvert/closing_line.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/print.h"
#include "xpjconvert/progress_display.h"
#include "xpjconvert/reports.h"
#include "xpjconvert/spool.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include <fmt/format.h>

namespace XPJ {
namespace {

constexpr std::string_view kStandardInputName = "standard input";
constexpr std::string_view kStandardOutputName = "standard output";

void PreparePlatform(const ToolOptions& options, DefaultPlatform& platform)
{
    // What a seed gives is the same in all languages, also where texts go into documents.
    if (options.seed)
        platform.SeedGuids(*options.seed);
    else
        platform.UseCatalog(InstalledCatalog());
    if (!options.strict)
        platform.SetDebugEntry("FCP.OpenInterchange", "true");
    for (const auto& [key, value] : options.debugEntries)
        platform.SetDebugEntry(key, value);
}

// What is in the input beside the sequence is no loss, nor how the browser shows it.
void LimitToOneSequence(ComparedTimelines& documents)
{
    KeepSequencesOf(documents.second.project, documents.first.project);
    KeepSequencesOf(documents.first.project, documents.second.project);
}

class DocumentConversion {
public:
    DocumentConversion(const ToolOptions& options, const InputDocument& document)
        : options_(options), request_(options.request), document_(document)
    {
    }

    ConvertedDocument Run(const std::string& outputPath)
    {
        CatchInterrupts();
        const bool isReady = OpenInput() && SetFormats() && SetOutput(outputPath);
        if (isReady)
            options_.toOtio ? WriteTimelines() : Convert();
        ReleaseInterrupts();
        converted_.outputPath = request_.outputPath;
        return std::move(converted_);
    }

private:
    // Always false.
    bool Fail(int status, const std::string& problem)
    {
        converted_.status = status;
        converted_.outcome.result = status;
        PrintError(fmt::format("XPJConvert: {}: {}.\n", request_.inputPath, problem));
        return false;
    }

    // What can be read only once (the standard input, a pipe) is copied first.
    bool OpenInput()
    {
        const bool isStandard = document_.path == kStandardStream;
        request_.inputPath = isStandard ? std::string(kStandardInputName) : document_.path;
        std::error_code error;
        const bool isThere = std::filesystem::exists(document_.path, error);
        if (!isStandard && (!isThere || std::filesystem::is_regular_file(document_.path, error)))
            return true;
        if (spooledInput_.Copy(isStandard ? "/dev/stdin" : document_.path, IsInterrupted)) {
            request_.readFrom = spooledInput_.Path();
            return true;
        }
        if (!IsInterrupted())
            return Fail(kInputCouldNotBeOpened, spooledInput_.Reason());
        converted_.status = kAborted;
        PrintError(FailureLine(request_.inputPath, kAborted, {}));
        return false;
    }

    const std::string& PathToRead() const
    {
        return request_.readFrom.empty() ? request_.inputPath : request_.readFrom;
    }

    bool SetFormats()
    {
        request_.from = &FormatOfDocument(options_, PathToRead(), request_.inputPath);
        request_.to = &FormatToWrite(*request_.from);
        if (options_.to == request_.from)
            return Fail(kWrongUsage, fmt::format("it is a {} already", request_.from->name));
        if (options_.handOff && DirectionOf(request_) == Direction::Import)
            return Fail(kWrongUsage, "--handoff is for projects");
        return true;
    }

    bool SetOutput(const std::string& outputPath)
    {
        if (options_.output == kStandardStream)
            return IsReportApart(kStandardStream) && SpoolOutput(std::string(kStandardOutputName));
        request_.outputPath =
            outputPath.empty() ? OutputPathOf(options_, InputName(), *request_.to) : outputPath;
        std::error_code error;
        if (std::filesystem::equivalent(document_.path, request_.outputPath, error))
            return Fail(kWrongUsage, "input and output are the same file");
        if (!IsReportApart(request_.outputPath))
            return false;
        if (options_.dryRun)
            return SpoolOutput(request_.outputPath);
        return true;
    }

    bool IsReportApart(std::string_view output)
    {
        const std::string report = ReportOverFile(options_, {document_.path, output});
        return report.empty() ||
               Fail(kWrongUsage,
                    fmt::format("the report {} would replace the input or the output", report));
    }

    // As the name of the output follows from it.
    std::string InputName() const
    {
        return document_.path == kStandardStream ? std::string(kStandardInputName)
                                                 : std::string(FileNameOf(document_.path));
    }

    bool SpoolOutput(std::string name)
    {
        request_.outputPath = std::move(name);
        request_.listsReport = false;
        // What nobody reads need not be kept.
        if (options_.dryRun && !options_.verify) {
            request_.writeTo = "/dev/null";
            return true;
        }
        if (!spooledOutput_.Create())
            return Fail(kUnexpectedError, spooledOutput_.Reason());
        request_.writeTo = spooledOutput_.Path();
        return true;
    }

    // Shows the progress; Ctrl-C stops the conversion.
    ConversionOutcome ConvertUnderDisplay()
    {
        ProgressDisplay display(options_.quiet);
        ConversionOutcome outcome =
            ConvertFiles(request_, {.show = [&display](double progress) { display.Show(progress); },
                                    .wantsStop = IsInterrupted});
        if (outcome.result == kSuccess)
            display.Show(1);
        return outcome;
    }

    void Convert()
    {
        DefaultPlatform platform;
        PreparePlatform(options_, platform);
        const PlatformScope scope(platform);
        if (options_.seed)
            request_.listsReport = false; // its name and folder don't follow from the input
        if (request_.handOff.value_or(false))
            PrintForPeople("Processing for Sonara consumption...\n");
        Reports reports(options_, request_);
        request_.reserveReport = [&reports] { return reports.Reserve(); };
        ConversionOutcome& outcome = converted_.outcome;
        outcome = ConvertUnderDisplay();
        Verify();
        const std::string problems = reports.Write(outcome);
        PrintOutput();
        PrintOutcome();
        PrintError(problems);
        converted_.status = outcome.result;
        if (outcome.result == kSuccess && HasFailure(options_, outcome))
            converted_.status = kLossesFound;
        else if (outcome.result == kSuccess && !problems.empty() && !options_.reports.empty())
            converted_.status = kUnexpectedError;
    }

    // As OpenTimelineIO.
    void WriteTimelines()
    {
        OtioOutcome written = ConvertToOtio(request_, Reading(), IsInterrupted);
        converted_.outcome = std::move(written.conversion);
        PrintError(EncodingLines(request_.inputPath, written.encoding));
        PrintOutput();
        if (converted_.outcome.result == kSuccess) {
            PrintError(CutOffLine(request_, converted_.outcome));
            PrintForPeople(TimelinesLine(request_, written, options_.dryRun));
        } else {
            PrintError(FailureLine(request_, converted_.outcome));
        }
        converted_.status = converted_.outcome.result;
    }

    DocumentReading Reading() const
    {
        return options_.strict ? DocumentReading::ToTheLetter : DocumentReading::AsMeant;
    }

    void Verify()
    {
        if (!options_.verify || converted_.outcome.result != kSuccess)
            return;
        const std::string& output =
            request_.writeTo.empty() ? request_.outputPath : request_.writeTo;
        ComparedTimelines documents =
            ReadForComparison({PathToRead(), FolderOf(request_.inputPath)},
                              {output, FolderOf(request_.outputPath)}, Reading());
        if (!request_.sequence.empty())
            LimitToOneSequence(documents);
        if (request_.mediaPaths)
            ChangeMediaPaths(*request_.mediaPaths, documents.first.project);
        AddUnexplained(documents, request_.markLosses, converted_.outcome.account);
    }

    // The document itself, where it goes to the standard output.
    void PrintOutput()
    {
        ConversionOutcome& outcome = converted_.outcome;
        if (options_.output != kStandardStream || options_.dryRun || outcome.result != kSuccess)
            return;
        if (spooledOutput_.Print())
            return;
        outcome.result = kUnexpectedError;
        outcome.outputLost = true;
        outcome.lossReason = spooledOutput_.Reason();
    }

    void PrintOutcome()
    {
        constexpr std::size_t kGroups = 7; // as many as fit on a screen
        const ConversionOutcome& outcome = converted_.outcome;
        if (!options_.quiet)
            PrintForPeople(GroupText(GroupRemarks(outcome.account.remarks), kGroups));
        if (outcome.result == kSuccess) {
            PrintError(CutOffLine(request_, outcome));
            PrintForPeople(SuccessLine(
                request_, outcome, {.isVerified = options_.verify, .isDryRun = options_.dryRun}));
        } else {
            PrintError(FailureLine(request_, outcome));
        }
    }

    // Beside what goes to the standard output.
    void PrintForPeople(const std::string& text) const
    {
        const bool hasResult = options_.output == kStandardStream ||
                               std::ranges::count(options_.reports, kStandardStream) > 0;
        hasResult ? PrintError(text) : Print(text);
    }

    const ToolOptions& options_;
    ConversionRequest request_;
    const InputDocument& document_;
    SpooledInput spooledInput_;
    SpooledOutput spooledOutput_;
    ConvertedDocument converted_;
};

} // namespace

ConvertedDocument ConvertDocument(const ToolOptions& options, const InputDocument& document,
                                  const std::string& outputPath)
{
    return DocumentConversion(options, document).Run(outputPath);
}

} // namespace XPJ

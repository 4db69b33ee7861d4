#include "xpjconvert/inspection.h"

#include "core/paths.h"
#include "frame/operation.h"
#include "inspect/compare.h"
#include "inspect/effect_table.h"
#include "inspect/json_form.h"
#include "inspect/look_form.h"
#include "inspect/read_timelines.h"
#include "inspect/text_form.h"
#include "platform/files.h"
#include "tree/input.h"
#include "xpjconvert/closing_line.h"
#include "xpjconvert/print.h"

#include <filesystem>
#include <iostream>

#include <fmt/format.h>

namespace XPJ {
namespace {

using namespace Inspection;

// Gives the exit status: output that got lost is no success.
int PrintAll(const std::string& text, int status)
{
    Print(text);
    const std::string loss = FlushPrinted();
    if (loss.empty())
        return status;
    PrintError(fmt::format("XPJConvert: the output could not be written: {}.\n", loss));
    return kUnexpectedError;
}

// False, after a word on the standard error, for what can't be read. A document that is cut off
// counts as far as it goes.
bool Take(const std::string& path, ReadOutcome outcome, Project& project, int& status)
{
    project = std::move(outcome.project);
    status = ResultOfRead(outcome.result);
    if (status != kSuccess) {
        FileConversion failure;
        failure.result = status;
        failure.stop = outcome.stop;
        ToolOptions options;
        options.input = path;
        PrintError(FailureLine(options, failure));
    } else if (!outcome.stop.reason.empty()) {
        PrintError(fmt::format("XPJConvert: {}; only what came before was read.\n",
                               StopText(path, outcome.stop)));
    }
    PrintError(EncodingLines(path, outcome.encoding));
    return status == kSuccess;
}

int InspectLook(const ToolOptions& options, std::string_view bytes)
{
    CZvError error;
    const std::optional<LookFile> file =
        ReadLookFile(bytes, std::filesystem::path(options.input).filename().string(), error);
    if (file)
        return PrintAll(options.json ? LookFileJson(*file) : LookFileText(*file), kSuccess);
    const std::string place =
        error.line > 0 ? fmt::format("{}:{}:", error.line, error.column) : std::string();
    PrintError(fmt::format("XPJConvert: {}:{} {}\n", options.input, place, error.message));
    return kNoFCPDataFound;
}

int Inspect(const ToolOptions& options)
{
    Document document;
    std::string_view bytes;
    ReadOutcome outcome;
    CoreFile file;
    if (!file.Open(options.input, false) || !ReadInput(file, document, bytes)) {
        outcome.result = kReadNoInput;
        outcome.stop.reason = ErrorText(file.Error());
    } else if (IsLookFile(bytes)) {
        return InspectLook(options, bytes);
    } else {
        outcome = ReadTimelines(bytes, FolderOf(options.input));
    }
    Project project;
    int status = kSuccess;
    if (!Take(options.input, std::move(outcome), project, status))
        return status;
    return PrintAll(options.json ? TreeJson(project, FileExists) : TreeText(project, FileExists),
                    kSuccess);
}

int CompareFiles(const ToolOptions& options)
{
    Project a;
    Project b;
    int status = kSuccess;
    if (!Take(options.input, ReadTimelinesOfFile(options.input), a, status) ||
        !Take(options.output, ReadTimelinesOfFile(options.output), b, status))
        return status;
    const std::vector<Difference> differences = Compare(a, b);
    return PrintAll(options.json ? DifferencesJson(differences) : DifferencesText(differences),
                    differences.empty() ? kSuccess : kDifferent);
}

} // namespace

std::optional<int> RunInspection(const ToolOptions& options)
{
    if (options.listEffects)
        return PrintAll(EffectTableText(), kSuccess);
    if (!options.inspect && !options.compare)
        return std::nullopt;
    std::cout.setstate(std::ios::failbit); // the readers' diagnostics for developers
    return options.inspect ? Inspect(options) : CompareFiles(options);
}

} // namespace XPJ

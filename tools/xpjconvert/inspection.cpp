#include "xpjconvert/inspection.h"

#include "core/paths.h"
#include "frame/operation.h"
#include "inspect/compare.h"
#include "inspect/effect_table.h"
#include "inspect/json_form.h"
#include "inspect/look_form.h"
#include "inspect/read_timelines.h"
#include "inspect/text_form.h"
#include "model/input.h"
#include "platform/files.h"
#include "xpjconvert/closing_line.h"

#include <cstdio>
#include <filesystem>
#include <iostream>

#include <fmt/format.h>

namespace XPJ {
namespace {

using namespace Inspection;

// Gives the exit status: output that got lost is no success.
int Print(const std::string& text, int status)
{
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (std::fflush(stdout) == 0 && isWritten)
        return status;
    fmt::print(stderr, "XPJConvert: the output could not be written.\n");
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
        fmt::print(stderr, "{}", FailureLine(options, failure));
    } else if (!outcome.stop.reason.empty()) {
        fmt::print(stderr, "XPJConvert: {}; only what came before was read.\n",
                   StopText(path, outcome.stop));
    }
    return status == kSuccess;
}

int InspectLook(const ToolOptions& options, std::string_view bytes)
{
    CZvError error;
    const std::optional<LookFile> file =
        ReadLookFile(bytes, std::filesystem::path(options.input).filename().string(), error);
    if (file)
        return Print(options.json ? LookFileJson(*file) : LookFileText(*file), kSuccess);
    const std::string place =
        error.line > 0 ? fmt::format("{}:{}:", error.line, error.column) : std::string();
    fmt::print(stderr, "XPJConvert: {}:{} {}\n", options.input, place, error.message);
    return kNoFCPDataFound;
}

int Inspect(const ToolOptions& options)
{
    Document document;
    std::string_view bytes;
    ReadOutcome outcome;
    if (!ReadInput(options.input, document, bytes, outcome.stop.reason))
        outcome.result = kReadNoInput;
    else if (IsLookFile(bytes))
        return InspectLook(options, bytes);
    else
        outcome = ReadTimelines(bytes, FolderOf(options.input));
    Project project;
    int status = kSuccess;
    if (!Take(options.input, std::move(outcome), project, status))
        return status;
    return Print(options.json ? TreeJson(project, FileExists) : TreeText(project, FileExists),
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
    return Print(options.json ? DifferencesJson(differences) : DifferencesText(differences),
                 differences.empty() ? kSuccess : kDifferent);
}

} // namespace

std::optional<int> RunInspection(const ToolOptions& options)
{
    if (options.listEffects)
        return Print(EffectTableText(), kSuccess);
    if (!options.inspect && !options.compare)
        return std::nullopt;
    std::cout.setstate(std::ios::failbit); // the readers' diagnostics for developers
    return options.inspect ? Inspect(options) : CompareFiles(options);
}

} // namespace XPJ

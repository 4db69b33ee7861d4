#include "xpjconvert/inspection.h"

#include "frame/operation.h"
#include "inspect/compare.h"
#include "inspect/effect_table.h"
#include "inspect/json_form.h"
#include "inspect/read_timelines.h"
#include "inspect/text_form.h"
#include "platform/files.h"
#include "xpjconvert/closing_line.h"

#include <cstdio>
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
bool Read(const std::string& path, Project& project, int& status)
{
    ReadOutcome outcome = ReadTimelinesOfFile(path);
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

int Inspect(const ToolOptions& options)
{
    Project project;
    int status = kSuccess;
    if (!Read(options.input, project, status))
        return status;
    return Print(options.json ? TreeJson(project, FileExists) : TreeText(project, FileExists),
                 kSuccess);
}

int CompareFiles(const ToolOptions& options)
{
    Project a;
    Project b;
    int status = kSuccess;
    if (!Read(options.input, a, status) || !Read(options.output, b, status))
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

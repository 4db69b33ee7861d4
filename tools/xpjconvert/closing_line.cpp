#include "xpjconvert/closing_line.h"
#include "core/conversion_result.h"
#include "core/messages.h"
#include "export/export_driver.h"
#include "platform/platform.h"

#include <fmt/format.h>

namespace XPJ {
namespace {

// False while an import carries over a project's settings and bins only.
constexpr bool kImportTranslatesClips = false;

bool TranslatesClips(Direction direction)
{
    return direction == Direction::Import ? kImportTranslatesClips : RVX::kTranslatesClips;
}

std::string FindingsText(const FileConversion& outcome, bool complete)
{
    const std::size_t count = outcome.issues.size();
    if (count == 0)
        return complete ? "nothing was lost" : "no findings";
    const std::string findings = fmt::format("{} finding{}", count, count == 1 ? "" : "s");
    if (outcome.reportPath.empty())
        return findings + ", without a report file";
    return fmt::format("{}, listed in {}", findings, outcome.reportPath);
}

// "FILE:LINE:COLUMN: reason, in open/elements", without the place where there is none.
std::string StopText(const std::string& input, const ReadStop& stop)
{
    const std::string place =
        stop.line == 0 ? input : fmt::format("{}:{}:{}", input, stop.line, stop.column);
    return fmt::format("{}: {}{}{}", place, stop.reason, stop.path.empty() ? "" : ", in ",
                       stop.path);
}

Message MessageOf(int result)
{
    switch (result) {
    case kAborted:
        return Message::kAborted;
    case kNoFCPDataFound:
        return Message::kNoFCPDataFound;
    case kOutOfMemory:
        return Message::kOutOfMemory;
    case kNoXMELM:
        return Message::kNoXMELM;
    case kInputCouldNotBeOpened:
        return Message::kInputCouldNotBeOpened;
    default:
        return Message::kUnexpectedError;
    }
}

} // namespace

std::string SuccessLine(Direction direction, const std::string& output,
                        const FileConversion& outcome)
{
    const bool complete = TranslatesClips(direction);
    return fmt::format("Wrote {}: {}{}\n", output,
                       complete ? "" : "clips and sequences are not carried over yet; ",
                       FindingsText(outcome, complete));
}

std::string CutOffLine(const ToolOptions& options, const FileConversion& outcome)
{
    if (outcome.stop.reason.empty())
        return {};
    return fmt::format("XPJConvert: {}; only what came before was converted.\n",
                       StopText(options.input, outcome.stop));
}

std::string FailureLine(const ToolOptions& options, const FileConversion& outcome)
{
    if (outcome.outputLost)
        return fmt::format("XPJConvert: {}: the output could not be written.\n", options.output);
    if (!outcome.stop.reason.empty() && outcome.result != kAborted)
        return fmt::format("XPJConvert: {}: {}\n", StopText(options.input, outcome.stop),
                           GetMessage(MessageOf(outcome.result)));
    return fmt::format("XPJConvert: {}: {}\n", options.input,
                       GetMessage(MessageOf(outcome.result)));
}

} // namespace XPJ

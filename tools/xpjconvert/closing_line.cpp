#include "xpjconvert/closing_line.h"
#include "frame/user_messages.h"
#include "platform/platform.h"
#include "report/account_report.h"

#include <fmt/format.h>

namespace XPJ {
namespace {

std::string Counted(std::size_t count, std::string_view noun)
{
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string LossesText(const ConversionOutcome& outcome, bool isVerified)
{
    if (outcome.account.remarks.empty())
        return isVerified ? "nothing was lost (verified)" : "nothing was lost";
    const std::string totals = CountsText(CountOutcomes(outcome.account));
    if (outcome.reportPath.empty())
        return totals + ", without a report file";
    return fmt::format("{}, listed in {}", totals, outcome.reportPath);
}

} // namespace

std::string StopText(const std::string& input, const ReadStop& stop)
{
    const std::string place =
        stop.line == 0 ? input : fmt::format("{}:{}:{}", input, stop.line, stop.column);
    return fmt::format("{}: {}{}{}", place, stop.reason, stop.path.empty() ? "" : ", in ",
                       stop.path);
}

std::string EncodingLines(const std::string& input, const EncodingFaults& faults)
{
    std::string lines;
    if (!faults.unknown.empty())
        lines += fmt::format("XPJConvert: {}: encoding \"{}\" is unknown, read as UTF-8.\n", input,
                             faults.unknown);
    if (faults.badRuns > 0)
        lines += fmt::format("XPJConvert: {}:{}:{}: invalid bytes in {}, in {}.\n", input,
                             faults.firstLine, faults.firstColumn, faults.encoding,
                             Counted(faults.badRuns, "place"));
    return lines;
}

std::string SuccessLine(const ConversionRequest& request, const ConversionOutcome& outcome,
                        SuccessKind kind)
{
    return fmt::format("{} {}: {}\n", kind.isDryRun ? "Would write" : "Wrote", request.outputPath,
                       LossesText(outcome, kind.isVerified));
}

std::string TimelinesLine(const ConversionRequest& request, const OtioOutcome& outcome,
                          bool isDryRun)
{
    return fmt::format("{} {}: {}, {}\n", isDryRun ? "Would write" : "Wrote", request.outputPath,
                       Counted(outcome.sequences, "sequence"), Counted(outcome.items, "clip"));
}

std::string CutOffLine(const ConversionRequest& request, const ConversionOutcome& outcome)
{
    if (outcome.stop.reason.empty())
        return {};
    return fmt::format("XPJConvert: {}; only what came before was converted.\n",
                       StopText(request.inputPath, outcome.stop));
}

std::string FailureLine(const ConversionRequest& request, const ConversionOutcome& outcome)
{
    if (outcome.outputLost)
        return fmt::format("XPJConvert: {}: the output could not be written: {}.\n",
                           request.outputPath, outcome.lossReason);
    if (outcome.lacksSequence)
        return fmt::format("XPJConvert: {}: {}.\n", request.inputPath, outcome.sequenceProblem);
    return FailureLine(request.inputPath, outcome.result, outcome.stop);
}

std::string FailureLine(const std::string& input, int result, const ReadStop& stop)
{
    const bool hasReason = !stop.reason.empty() && result != kAborted;
    return fmt::format("XPJConvert: {}: {}\n", hasReason ? StopText(input, stop) : input,
                       GetMessage(MessageOfResult(result)));
}

} // namespace XPJ

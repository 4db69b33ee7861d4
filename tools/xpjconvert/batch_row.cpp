#include "xpjconvert/batch_row.h"

#include "xpjconvert/options.h"

#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace XPJ {

void BatchTotals::Add(const BatchRow& row)
{
    switch (row.result) {
    case RowResult::Converted:
        ++converted;
        break;
    case RowResult::Skipped:
        ++skipped;
        break;
    case RowResult::Failed:
        ++failed;
        break;
    case RowResult::Aborted:
        ++aborted;
        break;
    }
    withLosses += row.status == kLossesFound ? 1 : 0;
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i] += row.counts[i];
}

std::string_view ResultName(RowResult result)
{
    constexpr std::string_view kNames[] = {"converted", "skipped", "failed", "aborted"};
    static_assert(std::size(kNames) == static_cast<std::size_t>(RowResult::Aborted) + 1);
    return kNames[static_cast<std::size_t>(result)];
}

std::string ClosingLineOf(const BatchTotals& totals, bool isDryRun)
{
    std::string line =
        fmt::format("{} {} of {} document{}", isDryRun ? "Would convert" : "Converted",
                    totals.converted, totals.documents, totals.documents == 1 ? "" : "s");
    const std::pair<std::size_t, std::string_view> rest[] = {
        {totals.skipped, "skipped"},
        {totals.failed, "failed"},
        {totals.aborted, "aborted"},
        {totals.documents - totals.Done(), "not begun"},
    };
    for (const auto& [count, name] : rest)
        if (count > 0)
            line += fmt::format(", {} {}", count, name);
    if (totals.converted > 0) {
        const std::string counts = CountsText(totals.counts);
        line += counts.empty() ? "; nothing was lost" : "; " + counts;
    }
    return line + ".\n";
}

} // namespace XPJ

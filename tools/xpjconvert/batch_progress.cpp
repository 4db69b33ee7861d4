#include "xpjconvert/batch_progress.h"

#include "xpjconvert/print.h"
#include "xpjconvert/progress_display.h"

#include <fmt/format.h>
#include <unistd.h>

namespace XPJ {

BatchProgress::BatchProgress(bool quiet) : isShown_(!quiet && isatty(STDERR_FILENO)) {}

void BatchProgress::Show(const BatchTotals& totals, std::size_t running)
{
    if (!isShown_)
        return;
    // Skipped documents take no time.
    const std::size_t work = totals.documents - totals.skipped;
    const std::size_t done = totals.Done() - totals.skipped;
    const double share = work == 0 ? 1 : static_cast<double>(done) / static_cast<double>(work);
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin_;
    PrintError(fmt::format("\r{} of {} done, {} running, {} failed{}\x1b[K", totals.Done(),
                           totals.documents, running, totals.failed,
                           TimeLeft(share, spent.count())));
    hasLine_ = true;
}

void BatchProgress::Hide()
{
    if (hasLine_)
        PrintError("\r\x1b[K"); // to the line's start, clear it
    hasLine_ = false;
}

} // namespace XPJ

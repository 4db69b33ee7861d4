#include "xpjconvert/progress_display.h"

#include "frame/conversion.h"
#include "xpjconvert/print.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>
#include <unistd.h>

namespace XPJ {
namespace {

constexpr int kBarWidth = 30;
// Below this share the time that was spent says little about the rest.
constexpr double kSmallShare = 0.03;

} // namespace

std::string TimeLeft(double progress, double seconds)
{
    if (progress < kSmallShare || progress >= 1)
        return {};
    const auto left = std::lround(seconds * (1 - progress) / progress);
    return fmt::format(", {}:{:02} left", left / 60, left % 60);
}

ProgressDisplay::ProgressDisplay(bool quiet) : isShown_(!quiet && isatty(STDERR_FILENO)) {}

ProgressDisplay::~ProgressDisplay()
{
    if (hasLine_)
        PrintError("\r\x1b[K"); // to the line's start, clear it
}

void ProgressDisplay::Show(double progress)
{
    if (!isShown_ || (progress >= 1 && !hasLine_))
        return;
    const double share = std::clamp(progress, 0.0, 1.0);
    const int filled = static_cast<int>(share * kBarWidth);
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin_;
    PrintError(fmt::format("\r[{:#<{}}{:.<{}}] {:3.0f}% {}{}\x1b[K", "", filled, "",
                           kBarWidth - filled, share * 100, StageAt(share),
                           TimeLeft(share, spent.count())));
    hasLine_ = true;
}

} // namespace XPJ

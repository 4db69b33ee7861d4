#include "xpjconvert/progress_display.h"
#include "core/numbers.h"
#include "xpjconvert/print.h"

#include <algorithm>

#include <fmt/format.h>
#include <unistd.h>

namespace XPJ {
namespace {

constexpr int kBarWidth = 40;

} // namespace

ProgressDisplay::ProgressDisplay(bool quiet)
    : style_(quiet                   ? Style::None
             : isatty(STDERR_FILENO) ? Style::Bar
                                     : Style::Lines)
{
}

ProgressDisplay::~ProgressDisplay()
{
    if (barShown_)
        PrintError("\r\x1b[K"); // to the line's start, clear it
}

void ProgressDisplay::Show(double progress)
{
    if (style_ == Style::Lines) {
        Print(fmt::format("Progress: {}%\n", DoubleToString(progress * 100)));
        FlushPrinted();
    } else if (style_ == Style::Bar) {
        const int filled = static_cast<int>(std::clamp(progress, 0.0, 1.0) * kBarWidth);
        PrintError(fmt::format("\r[{:#<{}}{:.<{}}] {:3.0f}%", "", filled, "", kBarWidth - filled,
                               progress * 100));
        barShown_ = true;
    }
}

} // namespace XPJ

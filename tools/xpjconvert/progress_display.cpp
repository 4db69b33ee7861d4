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
    : form_(quiet                   ? Form::None
            : isatty(STDERR_FILENO) ? Form::Bar
                                    : Form::Lines)
{
}

ProgressDisplay::~ProgressDisplay()
{
    if (barShown_)
        PrintError("\r\x1b[K"); // to the line's start, clear it
}

void ProgressDisplay::Show(double progress)
{
    if (form_ == Form::Lines) {
        Print(fmt::format("Progress: {}%\n", DoubleToString(progress * 100)));
        FlushPrinted();
    } else if (form_ == Form::Bar) {
        const int filled = static_cast<int>(std::clamp(progress, 0.0, 1.0) * kBarWidth);
        PrintError(fmt::format("\r[{:#<{}}{:.<{}}] {:3.0f}%", "", filled, "", kBarWidth - filled,
                               progress * 100));
        barShown_ = true;
    }
}

} // namespace XPJ

// The progress of a conversion on the terminal.
#pragma once

#include <chrono>
#include <string>

namespace XPJ {

// A line on the standard error, where that is a terminal: a bar with the stage, the share that is
// done and the time left.
class ProgressDisplay {
public:
    explicit ProgressDisplay(bool quiet);
    // Removes the line.
    ~ProgressDisplay();
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

    // 0 to 1. The end is shown only where something was shown before.
    void Show(double progress);

private:
    const bool isShown_;
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    bool hasLine_ = false;
};

// ", 1:05 left" after that share of the work and that time; empty as long as little is known.
std::string TimeLeft(double progress, double seconds);

} // namespace XPJ

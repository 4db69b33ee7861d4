// The progress of a conversion on the terminal.
#pragma once

namespace XPJ {

// A bar on the standard error where that is a terminal, else plain lines on the standard output.
class ProgressDisplay {
public:
    explicit ProgressDisplay(bool quiet);
    // Removes the bar.
    ~ProgressDisplay();
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

    // 0 to 1.
    void Show(double progress);

private:
    enum class Style { None, Bar, Lines };

    Style style_;
    bool barShown_ = false;
};

} // namespace XPJ

// How far a conversion is, for whoever watches.
#pragma once

namespace XPJ {

// A bar on the standard error where that is a terminal, else plain lines on the standard output, as
// the console front door prints them.
class ProgressDisplay {
public:
    explicit ProgressDisplay(bool quiet);
    // Takes the bar away.
    ~ProgressDisplay();
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

    // 0 to 1.
    void Show(double progress);

private:
    enum class Form { None, Bar, Lines };

    Form form_;
    bool barShown_ = false;
};

} // namespace XPJ

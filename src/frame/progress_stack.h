// The arithmetic of nested stages: how far a whole run is.
#pragma once

#include <cstdint>
#include <vector>

namespace XPJ {

// A stage covers `span` of the whole run from `base` on, and has `total` steps of its own.
struct ProgressStage {
    unsigned id = 0;
    double base = 0;
    double span = 1;
    std::uint32_t total = 1;
    std::uint32_t current = 0;

    double Fraction() const { return static_cast<double>(current) / total * span + base; }
};

// Only the top stage moves. Ending a stage doesn't move the position: its parent is advanced
// by whoever began the stage. Not for use by two threads at once.
class ProgressStack {
public:
    // Covers `steps` of the top stage's total, the whole run on an empty stack. A total below 1
    // counts as 1. Gives the stage's id, from 1 upwards, never used twice.
    unsigned Begin(unsigned steps, unsigned total);
    // Stops at the stage's total.
    void Advance(unsigned count);
    // The end of the last stage is the end of the run: 1.
    void End();
    // 0 to 1.
    double Position() const { return position_; }

private:
    std::vector<ProgressStage> stages_;
    unsigned nextId_ = 1;
    double position_ = 0;
};

} // namespace XPJ

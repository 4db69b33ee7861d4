// A progress that stops the job at a chosen question, and watches that stages are paired.
#pragma once

#include "core/progress.h"

#include <limits>

namespace XPJ {

class TestProgress final : public Progress {
public:
    // Cancels at the question of that number, from 0; never by default.
    explicit TestProgress(int cancelAt = std::numeric_limits<int>::max()) : cancelAt_(cancelAt) {}

    bool IsCancelled() override { return questions_++ >= cancelAt_; }
    unsigned BeginStage(unsigned, unsigned) override { return static_cast<unsigned>(++open_); }
    void Advance(unsigned, unsigned) override {}
    void EndStage(unsigned) override { --open_; }

    int Questions() const { return questions_; }
    int OpenStages() const { return open_; }

private:
    int cancelAt_;
    int questions_ = 0;
    int open_ = 0;
};

} // namespace XPJ

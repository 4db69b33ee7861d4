// A progress that stops the job at a chosen check, counts what is advanced, and watches that stages
// are paired.
#pragma once

#include "core/progress.h"

#include <functional>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ {

class TestProgress final : public Progress {
public:
    // Cancelled from the check of that number on, counted from 1; never by default.
    explicit TestProgress(unsigned cancelAt = 0) : cancelAt_(cancelAt) {}

    bool IsCancelled() override { return ++checks >= cancelAt_ && cancelAt_ != 0; }
    unsigned BeginStage(unsigned, unsigned total) override
    {
        totals.push_back(total);
        return ++open;
    }
    void Advance(unsigned, unsigned count) override { advanced += count; }
    void EndStage(unsigned) override { --open; }

    unsigned checks = 0;
    unsigned open = 0; // stages
    unsigned advanced = 0;
    std::vector<unsigned> totals; // of all stages, in order

private:
    unsigned cancelAt_;
};

// Stops a job at each of its checks in turn: it goes no further (but may check once more why it was
// stopped), gives `cancelled`, and its stages are closed. Returns the progress of the run that is
// not stopped, which gives `done`.
inline TestProgress ExpectStopsAtEachCheck(const std::function<int(Progress&)>& job, int done,
                                           int cancelled)
{
    TestProgress whole;
    EXPECT_EQ(job(whole), done);
    EXPECT_EQ(whole.open, 0u);
    for (unsigned check = 1; check <= whole.checks; ++check) {
        TestProgress progress(check);
        EXPECT_EQ(job(progress), cancelled) << "check " << check;
        EXPECT_LE(progress.checks, check + 1);
        EXPECT_EQ(progress.open, 0u) << "check " << check;
    }
    return whole;
}

} // namespace XPJ

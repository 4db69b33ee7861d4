// One conversion on a worker thread: its progress, its cancellation, and how it ended.
#pragma once

#include "frame/conversion.h"
#include "frame/progress_stack.h"
#include "platform/platform.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace XPJ {

// Created, started once, polled, destroyed by its caller. Two operations must not run at once in a
// process.
class Operation final : public ProgressOperation, private Progress {
public:
    // What the worker does. Gives a ConversionResult; may throw.
    using Work = std::function<int(Progress& progress, ConversionOutcome& outcome)>;

    explicit Operation(Work work) : work_(std::move(work)) {}
    // The streams must outlive the operation.
    Operation(ConversionRequest request, ConversionStreams streams);
    // Waits for the worker.
    ~Operation() override;
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    // False when no worker could be started; nothing will ever be done then.
    bool Start() override;
    // Asks the worker to stop at its next check; the caller still waits for the end.
    void Cancel() override { cancelRequested_ = true; }
    double GetProgress() override { return position_; }
    bool IsDone() override;
    bool WaitFor(std::chrono::milliseconds time) override;

    // Complete when the operation is done, and once; an unexpected error otherwise. An account may
    // be large, so it isn't copied.
    ConversionOutcome TakeOutcome();

private:
    bool IsCancelled() override { return cancelRequested_; }
    unsigned BeginStage(unsigned steps, unsigned total) override;
    void Advance(unsigned stage, unsigned count) override;
    void EndStage(unsigned stage) override;

    void RunWorker();
    void Publish() { position_ = stages_.Position(); }

    Work work_;
    ProgressStack stages_; // the worker's alone
    std::atomic<double> position_ = 0;
    std::atomic<bool> cancelRequested_ = false;

    std::mutex lock_; // guards what follows
    std::condition_variable ended_;
    bool isDone_ = false;
    ConversionOutcome outcome_;

    std::thread worker_;
};

} // namespace XPJ

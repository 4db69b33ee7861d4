// The frame of one conversion in either direction: one worker, its progress, its cancellation, and
// how it ended.
#pragma once

#include "core/conversion_result.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "frame/progress_stack.h"
#include "platform/platform.h"
#include "tree/reading.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace XPJ {

// What a conversion has to tell besides its result.
struct Findings {
    IssueSet issues;
    SkippedList skipped;
    ReadStop stop;          // where reading the input stopped early, or what of it can't be used
    std::string reportPath; // empty: no report was written
    bool lacksSequence = false; // an export's: the project doesn't hold the sequence asked for
};

// Created, started once, polled, destroyed by its caller. The Progress slots are the worker's; all
// else may be called from any thread. Two operations must not run at once in a process.
class Operation : public Progress {
public:
    // False when no worker could be started; nothing will ever be finished then.
    bool Start();
    // Asks the worker to stop at its next check; the caller still waits for the end.
    void Cancel() { cancelRequested_ = true; }
    // 0 to 1.
    double GetProgress() const { return position_; }
    bool IsFinished();
    // Returns once the operation is finished or the time is over, true when it is finished.
    bool WaitFor(std::chrono::milliseconds time);

    // These hold from the end on; the result is a ConversionResult.
    int GetResult();
    bool HasIssues();
    IssueSet GetIssues();
    SkippedList GetSkipped();
    ReadStop GetReadStop();
    std::string GetReportPath();
    bool LacksSequence();

    bool IsCancelled() override { return cancelRequested_; }
    unsigned BeginStage(unsigned steps, unsigned total) override;
    void Advance(unsigned stage, unsigned count) override;
    void EndStage(unsigned stage) override;

protected:
    Operation() = default;
    // A derived class calls it first in its destructor: the worker uses what the class holds.
    void Join();

    // One step of the road: runs `work` under a stage that covers `steps` of the road, and moves
    // the road on when it went well. Gives the step's result, kAborted after a cancellation.
    int RunStep(StageScope& road, unsigned steps, const std::function<int()>& work);

private:
    // The whole road, on the worker. May throw.
    virtual int Convert(Findings& findings) = 0;
    void Work();
    void Publish() { position_ = stages_.Position(); }

    ProgressStack stages_; // the worker's alone
    std::atomic<double> position_ = 0;
    std::atomic<bool> cancelRequested_ = false;

    std::mutex lock_; // guards what follows
    std::condition_variable ended_;
    bool finished_ = false;
    int result_ = kUnexpectedError;
    Findings findings_;

    std::thread worker_;
};

// What the readers' and the writers' own results mean for a conversion.
int ResultOfRead(int readResult);
int ResultOfWrite(int writeResult);

// Owns an operation for a progress display.
template <class T>
class OwnedOperation final : public ProgressOperation {
public:
    explicit OwnedOperation(std::unique_ptr<T> operation) : operation_(std::move(operation)) {}
    T& Get() { return *operation_; }

    bool Start() override { return operation_->Start(); }
    void Cancel() override { operation_->Cancel(); }
    double GetProgress() override { return operation_->GetProgress(); }
    bool IsDone() override { return operation_->IsFinished(); }
    bool WaitFor(std::chrono::milliseconds time) override { return operation_->WaitFor(time); }

private:
    std::unique_ptr<T> operation_;
};

} // namespace XPJ

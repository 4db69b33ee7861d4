#include "frame/operation.h"
#include "core/ticks.h"
#include "platform/write_signals.h"
#include "tree/writing.h"

#include <new>
#include <system_error>

namespace XPJ {

bool Operation::Start()
{
    if (worker_.joinable())
        return false;
    cancelRequested_ = false;
    finished_ = false;
    try {
        worker_ = std::thread(&Operation::Work, this);
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void Operation::Join()
{
    if (worker_.joinable())
        worker_.join();
}

void Operation::Work()
{
    BlockWriteSignals(); // also for the host's stream functions
    stages_.Clear();
    Publish();

    Findings findings;
    int result = kUnexpectedError;
    try {
        result = Convert(findings);
    } catch (const std::bad_alloc&) {
        result = kOutOfMemory;
    } catch (const DocumentFault& fault) {
        findings.stop = {};
        findings.stop.reason = fault.what();
    } catch (...) {
        result = kUnexpectedError;
    }

    const std::lock_guard guard(lock_);
    result_ = result;
    findings_ = std::move(findings);
    finished_ = true;
    ended_.notify_all();
}

int Operation::RunStep(StageScope& road, unsigned steps, const std::function<int()>& work)
{
    {
        const StageScope stage(*this, steps, 1);
        const int result = work();
        if (result != kSuccess)
            return result;
    }
    return road.Step(steps) ? kSuccess : kAborted;
}

bool Operation::IsFinished()
{
    const std::lock_guard guard(lock_);
    return finished_;
}

bool Operation::WaitFor(std::chrono::milliseconds time)
{
    std::unique_lock guard(lock_);
    return ended_.wait_for(guard, time, [this] { return finished_; });
}

int Operation::GetResult()
{
    const std::lock_guard guard(lock_);
    return result_;
}

bool Operation::HasIssues()
{
    const std::lock_guard guard(lock_);
    return !findings_.issues.empty();
}

IssueSet Operation::GetIssues()
{
    const std::lock_guard guard(lock_);
    return findings_.issues;
}

SkippedList Operation::GetSkipped()
{
    const std::lock_guard guard(lock_);
    return findings_.skipped;
}

ReadStop Operation::GetReadStop()
{
    const std::lock_guard guard(lock_);
    return findings_.stop;
}

std::string Operation::GetReportPath()
{
    const std::lock_guard guard(lock_);
    return findings_.reportPath;
}

bool Operation::LacksSequence()
{
    const std::lock_guard guard(lock_);
    return findings_.lacksSequence;
}

unsigned Operation::BeginStage(unsigned steps, unsigned total)
{
    const unsigned id = stages_.Begin(steps, total);
    Publish();
    return id;
}

void Operation::Advance(unsigned, unsigned count)
{
    stages_.Advance(count);
    Publish();
}

void Operation::EndStage(unsigned)
{
    stages_.End();
    Publish();
}

int ResultOfRead(int readResult)
{
    switch (readResult) {
    case kReadDone:
        return kSuccess;
    case kReadCancelled:
        return kAborted;
    case kReadNoElement:
        return kNoXMELM;
    case kReadNoInput:
        return kInputCouldNotBeOpened;
    default:
        return kUnexpectedError;
    }
}

int ResultOfWrite(int writeResult)
{
    switch (writeResult) {
    case kWriteDone:
        return kSuccess;
    case kWriteCancelled:
        return kAborted;
    default:
        return kUnexpectedError;
    }
}

} // namespace XPJ

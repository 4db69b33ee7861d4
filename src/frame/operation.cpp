#include "frame/operation.h"

#include "core/ticks.h"
#include "platform/write_signals.h"

#include <new>
#include <system_error>
#include <utility>

namespace XPJ {

Operation::Operation(ConversionRequest request, ConversionStreams streams)
    : work_(
          [request = std::move(request), streams](Progress& progress, ConversionOutcome& outcome) {
              return Convert(request, streams, progress, outcome);
          })
{
}

Operation::~Operation()
{
    if (worker_.joinable())
        worker_.join();
}

bool Operation::Start()
{
    if (worker_.joinable())
        return false;
    try {
        worker_ = std::thread(&Operation::RunWorker, this);
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void Operation::RunWorker()
{
    BlockWriteSignals(); // also for the host's stream functions

    ConversionOutcome outcome;
    try {
        outcome.result = work_(*this, outcome);
    } catch (const std::bad_alloc&) {
        outcome.result = kOutOfMemory;
    } catch (const DocumentFault& fault) {
        outcome.result = kUnexpectedError;
        outcome.stop = {};
        outcome.stop.reason = fault.what();
    } catch (...) {
        outcome.result = kUnexpectedError;
    }

    const std::lock_guard guard(lock_);
    outcome_ = std::move(outcome);
    isDone_ = true;
    ended_.notify_all();
}

bool Operation::IsDone()
{
    const std::lock_guard guard(lock_);
    return isDone_;
}

bool Operation::WaitFor(std::chrono::milliseconds time)
{
    std::unique_lock guard(lock_);
    return ended_.wait_for(guard, time, [this] { return isDone_; });
}

ConversionOutcome Operation::TakeOutcome()
{
    const std::lock_guard guard(lock_);
    return std::exchange(outcome_, {});
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

} // namespace XPJ

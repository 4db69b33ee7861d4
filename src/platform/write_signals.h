// Signals with which the system ends a process that writes: SIGPIPE for a pipe without a reader,
// SIGXFSZ for a file beyond the limit of its size. While they are blocked, both are failed writes
// like any other. How the process handles them is never changed.
#pragma once

#include <csignal>

namespace XPJ {

// Blocks both on the calling thread for good: for threads that are ours.
void BlockWriteSignals();

// Blocks both on the calling thread for the scope's life; those that a write in the scope has
// raised are discarded at its end.
class WriteSignalScope {
public:
    WriteSignalScope();
    ~WriteSignalScope();
    WriteSignalScope(const WriteSignalScope&) = delete;
    WriteSignalScope& operator=(const WriteSignalScope&) = delete;

private:
    sigset_t previousMask_;
    sigset_t pendingBefore_;
};

} // namespace XPJ

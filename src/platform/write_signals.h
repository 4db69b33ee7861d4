// Signals with which the system ends a process that writes: SIGPIPE for a pipe that nobody reads,
// SIGXFSZ for a file beyond the limit of its size. Held back, both are failed writes like any
// other. The process's own way of handling them is never touched.
#pragma once

#include <csignal>

namespace XPJ {

// Holds both back from the calling thread for good: for threads that are ours.
void BlockWriteSignals();

// Holds both back from the calling thread for the scope's life; those that a write in the scope has
// raised are gone at its end.
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

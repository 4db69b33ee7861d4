#include "platform/write_signals.h"

#include <cerrno>
#include <ctime>

namespace XPJ {

namespace {

constexpr int kWriteSignals[] = {SIGPIPE, SIGXFSZ};

sigset_t WriteSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kWriteSignals)
        sigaddset(&signals, signal);
    return signals;
}

void Discard(int signal)
{
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, signal);
    const timespec atOnce{};
    while (sigtimedwait(&one, nullptr, &atOnce) < 0 && errno == EINTR) {
    }
}

} // namespace

void BlockWriteSignals()
{
    const sigset_t signals = WriteSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

WriteSignalScope::WriteSignalScope()
{
    sigpending(&pendingBefore_);
    const sigset_t signals = WriteSignals();
    pthread_sigmask(SIG_BLOCK, &signals, &previousMask_);
}

WriteSignalScope::~WriteSignalScope()
{
    const int error = errno; // of the write, for the caller
    sigset_t pending;
    sigpending(&pending);
    for (const int signal : kWriteSignals)
        if (sigismember(&pending, signal) == 1 && sigismember(&pendingBefore_, signal) == 0)
            Discard(signal);
    pthread_sigmask(SIG_SETMASK, &previousMask_, nullptr);
    errno = error;
}

} // namespace XPJ

#include "xpjconvert/interrupt.h"

#include <atomic>
#include <csignal>

#include <poll.h>

namespace XPJ {
namespace {

constexpr int kInterrupts[] = {SIGINT, SIGTERM, SIGHUP};

std::atomic<int> gSignal = 0;
static_assert(std::atomic<int>::is_always_lock_free); // a signal handler sets it

int gPipe = -1; // see InterruptWhenClosed

void SetHandler(int number, void (*handler)(int))
{
    struct sigaction action {};
    action.sa_handler = handler;
    // Without SA_RESTART: the waiting thread's system call is interrupted.
    sigaction(number, &action, nullptr);
}

extern "C" void RememberInterrupt(int number)
{
    if (gSignal.exchange(number) == 0)
        return;
    SetHandler(number, SIG_DFL);
    raise(number); // comes once this handler has returned
}

bool IsPipeClosed()
{
    pollfd pipe{.fd = gPipe, .events = POLLIN, .revents = 0};
    return gPipe >= 0 && ::poll(&pipe, 1, 0) > 0;
}

// As under nohup.
bool IsHangUpIgnored()
{
    struct sigaction action {};
    sigaction(SIGHUP, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

void CatchInterrupts()
{
    for (const int number : kInterrupts)
        if (number != SIGHUP || !IsHangUpIgnored())
            SetHandler(number, RememberInterrupt);
    SetHandler(SIGPIPE, SIG_IGN);
    SetHandler(SIGXFSZ, SIG_IGN);
}

void ReleaseInterrupts()
{
    for (const int number : kInterrupts)
        if (number != SIGHUP || !IsHangUpIgnored())
            SetHandler(number, SIG_DFL);
}

void InterruptWhenClosed(int pipe)
{
    gPipe = pipe;
}

bool IsInterrupted()
{
    return gSignal != 0 || IsPipeClosed();
}

void EndByInterrupt()
{
    const int number = gSignal;
    if (number == 0)
        return;
    SetHandler(number, SIG_DFL);
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, number);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    raise(number);
}

} // namespace XPJ

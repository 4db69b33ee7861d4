#include "xpjconvert/interrupt.h"

#include <csignal>

namespace XPJ {
namespace {

volatile std::sig_atomic_t gInterrupted = 0;

extern "C" void RememberInterrupt(int)
{
    gInterrupted = 1;
}

} // namespace

void CatchInterrupts()
{
    struct sigaction action {};
    action.sa_handler = RememberInterrupt;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

bool IsInterrupted()
{
    return gInterrupted != 0;
}

} // namespace XPJ

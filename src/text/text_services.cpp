#include "text/text_services.h"

#include <mutex>

namespace XPJ::GVE {

namespace {

std::recursive_mutex& Lock()
{
    static std::recursive_mutex lock;
    return lock;
}

int running = 0; // guarded by Lock()

} // namespace

void StartTextServices()
{
    const std::lock_guard guard(Lock());
    ++running;
}

void StopTextServices()
{
    const std::lock_guard guard(Lock());
    if (running > 0)
        --running;
}

int RunningTextServices()
{
    const std::lock_guard guard(Lock());
    return running;
}

} // namespace XPJ::GVE

#include "xpjconvert/child_processes.h"

#include "xpjconvert/interrupt.h"

#include <array>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace XPJ {

SharedText::SharedText() : descriptor_(::memfd_create("xpjconvert", MFD_CLOEXEC)) {}

SharedText::~SharedText()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

void SharedText::Replace(int stream)
{
    ::dup2(descriptor_, stream);
    ::close(descriptor_);
    descriptor_ = stream;
}

std::string SharedText::Read() const
{
    std::string text;
    std::array<char, 4096> block;
    ssize_t count = 0;
    while ((count = ::pread(descriptor_, block.data(), block.size(),
                            static_cast<off_t>(text.size()))) > 0)
        text.append(block.data(), static_cast<std::size_t>(count));
    return text;
}

ChildSignal::ChildSignal()
{
    // A caller may have it ignored, and the system then forgets children at once.
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    ::sigaction(SIGCHLD, &action, &oldAction_);
    ::sigemptyset(&signal_);
    ::sigaddset(&signal_, SIGCHLD);
    ::pthread_sigmask(SIG_BLOCK, &signal_, &oldMask_);
}

ChildSignal::~ChildSignal()
{
    Restore();
}

void ChildSignal::Wait(std::chrono::milliseconds time) const
{
    const timespec limit{.tv_sec = time.count() / 1000, .tv_nsec = time.count() % 1000 * 1000000};
    ::sigtimedwait(&signal_, nullptr, &limit);
}

void ChildSignal::Restore() const
{
    ::sigaction(SIGCHLD, &oldAction_, nullptr);
    ::pthread_sigmask(SIG_SETMASK, &oldMask_, nullptr);
}

Lifeline::Lifeline()
{
    if (::pipe2(ends_, O_CLOEXEC) != 0)
        ends_[0] = ends_[1] = -1; // the system's signals still reach the children
}

Lifeline::~Lifeline()
{
    Close();
    if (ends_[0] >= 0)
        ::close(ends_[0]);
}

void Lifeline::Close()
{
    if (ends_[1] >= 0)
        ::close(ends_[1]);
    ends_[1] = -1;
}

void Lifeline::Hold()
{
    Close();
    InterruptWhenClosed(ends_[0]);
}

} // namespace XPJ

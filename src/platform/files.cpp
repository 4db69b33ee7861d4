#include "platform/files.h"

#include "platform/write_signals.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace XPJ {

namespace {

constexpr int kStopCheckInterval = 50; // ms

// Pipes, terminals and devices, where a call may have to wait for the other end.
bool MayWait(const std::string& path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

} // namespace

bool CoreFile::Open(const std::string& path, bool forWriting)
{
    return OpenDescriptor(path, forWriting ? O_WRONLY | O_CREAT | O_TRUNC : O_RDONLY);
}

bool CoreFile::CreateNew(const std::string& path)
{
    return OpenDescriptor(path, O_WRONLY | O_CREAT | O_EXCL);
}

bool CoreFile::OpenForUpdate(const std::string& path)
{
    return OpenDescriptor(path, O_RDWR);
}

// Opening a pipe waits for its other end, too: with a stop check that is polled instead.
bool CoreFile::OpenDescriptor(const std::string& path, int flags)
{
    constexpr mode_t kNewFile = 0666; // without the bits of the process's mask
    Close();
    error_ = 0;
    mayWait_ = MayWait(path);
    flags |= O_CLOEXEC | (mayWait_ && wantsStop_ ? O_NONBLOCK : 0);
    for (;;) {
        descriptor_ = ::open(path.c_str(), flags, kNewFile);
        if (IsOpen())
            return true;
        const bool hasNoReader = errno == ENXIO && (flags & O_NONBLOCK) != 0;
        if (errno != EINTR && !hasNoReader)
            return Fail(errno);
        if (wantsStop_ && wantsStop_())
            return Fail(ECANCELED);
        if (hasNoReader)
            ::poll(nullptr, 0, kStopCheckInterval);
    }
}

std::size_t CoreFile::Size() const
{
    struct stat status {};
    if (!IsOpen() || ::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    return static_cast<std::size_t>(status.st_size);
}

bool CoreFile::Read(void* buffer, std::size_t size, std::size_t& bytesRead)
{
    bytesRead = 0;
    std::size_t count = 0;
    while (count < size) {
        if (!Await(POLLIN))
            return false;
        const ssize_t step = ::read(descriptor_, static_cast<char*>(buffer) + count, size - count);
        if (step < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (step < 0)
            return Fail(errno);
        if (step == 0)
            break;
        count += static_cast<std::size_t>(step);
    }
    bytesRead = count;
    return IsOpen();
}

bool CoreFile::Write(const void* buffer, std::size_t size, std::size_t& bytesWritten)
{
    bytesWritten = 0;
    std::size_t count = 0;
    const WriteSignalScope signals;
    while (count < size) {
        if (!Await(POLLOUT))
            return false;
        const ssize_t step =
            ::write(descriptor_, static_cast<const char*>(buffer) + count, size - count);
        if (step < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (step <= 0)
            return Fail(step < 0 ? errno : EIO);
        count += static_cast<std::size_t>(step);
    }
    bytesWritten = count;
    return IsOpen();
}

// Returns when the descriptor can be read or written; false if the call is to fail.
bool CoreFile::Await(short event)
{
    pollfd poll{descriptor_, event, 0};
    while (IsOpen()) {
        if (wantsStop_ && wantsStop_())
            return Fail(ECANCELED);
        if (!mayWait_ || !wantsStop_)
            return true;
        const int ready = ::poll(&poll, 1, kStopCheckInterval);
        if (ready > 0)
            return true; // also for a closed other end: the call then fails
        if (ready < 0 && errno != EINTR)
            return Fail(errno);
    }
    return false;
}

bool CoreFile::Rewind()
{
    return IsOpen() && (::lseek(descriptor_, 0, SEEK_SET) == 0 || Fail(errno));
}

bool CoreFile::CutHere()
{
    if (!IsOpen())
        return false;
    const off_t place = ::lseek(descriptor_, 0, SEEK_CUR);
    return (place >= 0 && ::ftruncate(descriptor_, place) == 0) || Fail(errno);
}

bool CoreFile::SetPermissions(unsigned permissions)
{
    return IsOpen() && ::fchmod(descriptor_, permissions) == 0;
}

bool CoreFile::Fail(int error)
{
    Close();
    error_ = error;
    return false;
}

bool CoreFile::Close()
{
    if (!IsOpen())
        return false;
    const bool kept = ::close(descriptor_) == 0;
    descriptor_ = -1;
    if (!kept)
        error_ = errno;
    return kept;
}

std::string ErrorText(int error)
{
    return std::generic_category().message(error);
}

bool FileExists(const std::string& path)
{
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::optional<std::string> ReadRegularFile(const std::string& path, std::size_t limit)
{
    // Before it is opened: a pipe would wait for its writer.
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    CoreFile file;
    if (!file.Open(path, false))
        return {};
    const std::size_t size = static_cast<std::size_t>(status.st_size);
    std::string bytes(size > limit ? 0 : size, '\0');
    std::size_t bytesRead = 0;
    if (!file.Read(bytes.data(), bytes.size(), bytesRead))
        return {};
    bytes.resize(bytesRead);
    return bytes;
}

} // namespace XPJ

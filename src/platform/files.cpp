#include "platform/files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace XPJ {

namespace {

constexpr int kMaxTemporaryNames = 100;

int OpenDescriptor(const std::string& path, int flags)
{
    constexpr mode_t kNewFile = 0666; // less the process's mask
    int descriptor = -1;
    do
        descriptor = ::open(path.c_str(), flags | O_CLOEXEC, kNewFile);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

// The file behind a chain of links, the path itself if there is none.
std::string ResolveLinks(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(path, error);
    return error ? path : resolved.string();
}

} // namespace

bool CoreFile::Open(const std::string& path, bool forWriting)
{
    Close();
    descriptor_ = OpenDescriptor(path, forWriting ? O_WRONLY | O_CREAT | O_TRUNC : O_RDONLY);
    return IsOpen();
}

bool CoreFile::CreateNew(const std::string& path)
{
    Close();
    descriptor_ = OpenDescriptor(path, O_WRONLY | O_CREAT | O_EXCL);
    return IsOpen();
}

bool CoreFile::Read(void* buffer, std::size_t size, std::size_t& bytesRead)
{
    bytesRead = 0;
    if (!IsOpen())
        return false;
    std::size_t count = 0;
    while (count < size) {
        const ssize_t step = ::read(descriptor_, static_cast<char*>(buffer) + count, size - count);
        if (step < 0 && errno == EINTR)
            continue;
        if (step < 0) {
            Close();
            return false;
        }
        if (step == 0)
            break;
        count += static_cast<std::size_t>(step);
    }
    bytesRead = count;
    return true;
}

bool CoreFile::Write(const void* buffer, std::size_t size, std::size_t& bytesWritten)
{
    bytesWritten = 0;
    if (!IsOpen())
        return false;
    std::size_t count = 0;
    while (count < size) {
        const ssize_t step =
            ::write(descriptor_, static_cast<const char*>(buffer) + count, size - count);
        if (step < 0 && errno == EINTR)
            continue;
        if (step <= 0) {
            Close();
            return false;
        }
        count += static_cast<std::size_t>(step);
    }
    bytesWritten = count;
    return true;
}

bool CoreFile::Close()
{
    if (!IsOpen())
        return false;
    const bool kept = ::close(descriptor_) == 0;
    descriptor_ = -1;
    return kept;
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

AtomicFile::AtomicFile(const std::string& path) : path_(ResolveLinks(path))
{
    if (path_.empty())
        return;
    struct stat status {};
    if (::stat(path_.c_str(), &status) != 0) {
        OpenBeside(0);
        return;
    }
    if (!S_ISREG(status.st_mode))
        file_.Open(path_, true);
    else if (::access(path_.c_str(), W_OK) == 0)
        OpenBeside(status.st_mode & 07777);
}

void AtomicFile::OpenBeside(unsigned permissions)
{
    for (int i = 0; i < kMaxTemporaryNames && !file_.IsOpen(); ++i) {
        temporaryPath_ = path_ + ".part" + (i == 0 ? std::string() : std::to_string(i));
        if (!file_.CreateNew(temporaryPath_) && errno != EEXIST)
            break;
    }
    if (!file_.IsOpen())
        temporaryPath_.clear();
    else if (permissions != 0)
        // A file that can't take the old one's permissions is still the better file.
        static_cast<void>(::fchmod(file_.descriptor_, permissions));
}

AtomicFile::~AtomicFile()
{
    file_.Close();
    if (!temporaryPath_.empty())
        ::unlink(temporaryPath_.c_str());
}

bool AtomicFile::Commit()
{
    if (!file_.Close())
        return false;
    if (temporaryPath_.empty())
        return true;
    if (std::rename(temporaryPath_.c_str(), path_.c_str()) != 0)
        return false;
    temporaryPath_.clear();
    return true;
}

} // namespace XPJ

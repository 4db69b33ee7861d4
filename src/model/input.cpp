#include "model/input.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <istream>
#include <system_error>

namespace XPJ {

namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

class File {
public:
    explicit File(const std::string& path) : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
    }
    ~File()
    {
        if (IsOpen())
            close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }

    // 0 for what is no regular file.
    std::size_t Size() const
    {
        struct stat status;
        if (fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
            return 0;
        return static_cast<std::size_t>(status.st_size);
    }

    // Fills the buffer as far as the file goes; -1 for a failure.
    ssize_t Read(char* buffer, std::size_t size) const
    {
        std::size_t count = 0;
        while (count < size) {
            const ssize_t part = read(descriptor_, buffer + count, size - count);
            if (part == 0)
                break;
            if (part > 0)
                count += static_cast<std::size_t>(part);
            else if (errno != EINTR)
                return -1;
        }
        return static_cast<ssize_t>(count);
    }

private:
    int descriptor_;
};

// Pipes and devices don't tell their size.
bool ReadBlocks(const File& file, Document& document, std::string_view& text)
{
    std::string bytes;
    for (;;) {
        const std::size_t start = bytes.size();
        bytes.resize(start + kBlockSize);
        const ssize_t count = file.Read(bytes.data() + start, kBlockSize);
        if (count < 0)
            return false;
        bytes.resize(start + static_cast<std::size_t>(count));
        if (count == 0)
            break;
    }
    text = document.Adopt(std::move(bytes));
    return true;
}

bool ReadFile(const File& file, Document& document, std::string_view& text)
{
    if (!file.IsOpen())
        return false;
    const std::size_t size = file.Size();
    if (size == 0)
        return ReadBlocks(file, document, text);
    char* const buffer = static_cast<char*>(document.Allocate(size, 1));
    const ssize_t count = file.Read(buffer, size);
    if (count < 0)
        return false;
    text = {buffer, static_cast<std::size_t>(count)};
    return true;
}

} // namespace

bool ReadInput(const std::string& path, Document& document, std::string_view& text,
               std::string& reason)
{
    const File file(path);
    if (ReadFile(file, document, text))
        return true;
    reason = std::generic_category().message(errno);
    return false;
}

std::string_view ReadInput(std::istream& input, Document& document)
{
    std::string bytes;
    while (input) {
        const std::size_t start = bytes.size();
        bytes.resize(start + kBlockSize);
        input.read(bytes.data() + start, static_cast<std::streamsize>(kBlockSize));
        bytes.resize(start + static_cast<std::size_t>(input.gcount()));
    }
    return document.Adopt(std::move(bytes));
}

} // namespace XPJ

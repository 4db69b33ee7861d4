#include "xpjconvert/spool.h"

#include "xpjconvert/print.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace XPJ {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

// A new file in the folder for temporary ones; its name goes into `path`.
int CreateTemporary(std::string& path)
{
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    path = (error ? std::filesystem::path("/tmp") : folder) / "xpjconvert-XXXXXX";
    return ::mkostemp(path.data(), O_CLOEXEC);
}

} // namespace

SpooledInput::~SpooledInput()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

std::string SpooledInput::Path() const
{
    return "/proc/self/fd/" + std::to_string(descriptor_);
}

bool SpooledInput::Copy(const std::string& path, StopCheck wantsStop)
{
    std::string temporary;
    descriptor_ = CreateTemporary(temporary);
    if (descriptor_ < 0) {
        reason_ = ErrorText(errno);
        return false;
    }
    CoreFile from;
    CoreFile to;
    from.StopWhen(std::move(wantsStop));
    bool isCopied = from.Open(path, false) && to.Open(temporary, true);
    ::unlink(temporary.c_str());
    std::array<char, kBlockSize> block;
    for (std::size_t count = block.size(); isCopied && count == block.size();) {
        std::size_t written = 0;
        isCopied =
            from.Read(block.data(), block.size(), count) && to.Write(block.data(), count, written);
    }
    isCopied = isCopied && to.Close();
    if (!isCopied)
        reason_ = ErrorText(from.Error() != 0 ? from.Error() : to.Error());
    return isCopied;
}

SpooledOutput::~SpooledOutput()
{
    if (!path_.empty())
        ::unlink(path_.c_str());
}

bool SpooledOutput::Create()
{
    const int descriptor = CreateTemporary(path_);
    if (descriptor >= 0) {
        ::close(descriptor);
        return true;
    }
    reason_ = ErrorText(errno);
    path_.clear();
    return false;
}

bool SpooledOutput::Print()
{
    CoreFile file;
    std::array<char, kBlockSize> block;
    bool isRead = file.Open(path_, false);
    for (std::size_t count = block.size(); isRead && count == block.size();) {
        isRead = file.Read(block.data(), block.size(), count);
        XPJ::Print({block.data(), count});
    }
    reason_ = isRead ? FlushPrinted() : ErrorText(file.Error());
    return reason_.empty();
}

} // namespace XPJ

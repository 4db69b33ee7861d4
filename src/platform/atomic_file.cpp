#include "platform/atomic_file.h"

#include "core/paths.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace XPJ {

namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;
// What is kept of a name that is too long for a suffix: short enough for every file system.
constexpr std::size_t kShortName = 100;
constexpr int kMaxLinks = 40; // the system's own limit

std::filesystem::path LinkTarget(const std::filesystem::path& path)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    return error ? std::filesystem::path() : path.parent_path() / target;
}

// The file at the end of a chain of links, existing or not; the path itself if it is no link.
std::string ResolveLinks(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(path, error);
    if (!error)
        return resolved.string();
    if (FileExists(path) && ::access(path.c_str(), F_OK) == 0)
        return path; // a file without a name of its own, under /proc
    std::filesystem::path place = path;
    for (int i = 0; i < kMaxLinks; ++i) {
        const std::filesystem::path target = LinkTarget(place);
        if (target.empty())
            break;
        place = target;
    }
    return place.string();
}

// At most `size` bytes of a name, cut between characters.
std::string_view Shortened(std::string_view name, std::size_t size)
{
    if (name.size() <= size)
        return name;
    while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0) == 0x80)
        --size;
    return name.substr(0, size);
}

bool ReadAll(CoreFile& file, std::string& text)
{
    text.resize(file.Size());
    std::size_t count = 0;
    const bool isRead = file.Read(text.data(), text.size(), count);
    text.resize(count);
    return isRead;
}

bool WriteAll(CoreFile& file, std::string_view text)
{
    std::size_t count = 0;
    return file.Rewind() && file.Write(text.data(), text.size(), count) && file.CutHere();
}

bool CopyAll(CoreFile& from, CoreFile& to)
{
    std::array<char, kBlockSize> block;
    for (std::size_t count = block.size(); count == block.size();) {
        std::size_t written = 0;
        if (!from.Read(block.data(), block.size(), count) ||
            !to.Write(block.data(), count, written))
            return false;
    }
    return to.CutHere();
}

} // namespace

AtomicFile::AtomicFile(const std::string& path, StopCheck wantsStop)
{
    struct stat status {};
    const bool isThere = ::stat(path.c_str(), &status) == 0;
    if (!isThere && (errno != ENOENT || path.empty())) {
        error_ = errno;
        return;
    }
    if (isThere && !S_ISREG(status.st_mode)) {
        file_.StopWhen(std::move(wantsStop));
        file_.Open(path, true);
        return;
    }
    path_ = ResolveLinks(path);
    if (isThere && ::access(path_.c_str(), W_OK) != 0)
        error_ = errno;
    else
        OpenTemporary(isThere ? status.st_mode & 07777 : 0);
}

// Permissions: those of the existing file, 0 without one.
void AtomicFile::OpenTemporary(unsigned permissions)
{
    const bool isThere = permissions != 0 || ::access(path_.c_str(), F_OK) == 0;
    OpenIn(std::string(FolderOf(path_)), permissions);
    if (file_.IsOpen() || !isThere)
        return;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (!error)
        OpenIn(folder.string() + "/", permissions);
}

void AtomicFile::OpenIn(const std::string& folder, unsigned permissions)
{
    std::string_view name = FileNameOf(path_);
    for (std::uint64_t i = 0; !file_.IsOpen(); ++i) {
        temporaryPath_ = folder;
        temporaryPath_.append(name).append(kTemporarySuffix);
        temporaryPath_.append(i == 0 ? "" : std::to_string(i));
        if (file_.CreateNew(temporaryPath_) || file_.Error() == EEXIST)
            continue;
        if (file_.Error() != ENAMETOOLONG || name.size() <= kShortName)
            break;
        name = Shortened(name, kShortName);
    }
    if (!file_.IsOpen())
        temporaryPath_.clear();
    else if (permissions != 0)
        // The new file is kept even if it can't get the old one's permissions.
        static_cast<void>(file_.SetPermissions(permissions));
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
    if (std::rename(temporaryPath_.c_str(), path_.c_str()) != 0) {
        error_ = errno;
        return CopyOver();
    }
    temporaryPath_.clear();
    return true;
}

// For a file that can't be replaced by another one: a mount point, a file in a folder of another
// user.
bool AtomicFile::CopyOver()
{
    CoreFile target;
    if (::access(path_.c_str(), F_OK) != 0 || !target.OpenForUpdate(path_))
        return false;
    std::string oldText;
    CoreFile source;
    if (!source.Open(temporaryPath_, false) || !ReadAll(target, oldText)) {
        error_ = source.Error() != 0 ? source.Error() : target.Error();
        return false;
    }
    if (target.Rewind() && CopyAll(source, target) && target.Close()) {
        error_ = 0;
        return true;
    }
    error_ = source.Error() != 0 ? source.Error() : target.Error();
    oldTextLost_ = !target.OpenForUpdate(path_) || !WriteAll(target, oldText) || !target.Close();
    return false;
}

std::string AtomicFile::Reason() const
{
    const int error = error_ != 0 ? error_ : file_.Error();
    std::string text = error == 0 ? std::string() : ErrorText(error);
    if (oldTextLost_)
        text += ", and the older file could not be brought back";
    return text;
}

} // namespace XPJ

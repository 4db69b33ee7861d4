// Plain files by UTF-8 path.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace XPJ {

// Asked before a block is read or written, and now and then while the other end of a pipe lets a
// call wait; true makes the call fail.
using StopCheck = std::function<bool()>;

// A thin class on a file descriptor. A failed read or write closes the file and counts 0 bytes, so
// that all later calls do nothing. No write raises a signal.
class CoreFile {
public:
    CoreFile() = default;
    ~CoreFile() { Close(); }
    CoreFile(const CoreFile&) = delete;
    CoreFile& operator=(const CoreFile&) = delete;

    // To be set before the file is opened. Without it calls wait as long as it takes.
    void StopWhen(StopCheck wantsStop) { wantsStop_ = std::move(wantsStop); }

    // Creates or truncates for writing, opens what exists for reading.
    bool Open(const std::string& path, bool forWriting);
    // Creates for writing; false if the path is taken.
    bool CreateNew(const std::string& path);
    // Opens what exists for both, as it is.
    bool OpenForUpdate(const std::string& path);
    bool IsOpen() const { return descriptor_ >= 0; }
    // In bytes; 0 for what is no regular file, or not open.
    std::size_t Size() const;

    // `bytesRead` is less than `size` at the file's end only.
    bool Read(void* buffer, std::size_t size, std::size_t& bytesRead);
    // False unless all of it was written.
    bool Write(const void* buffer, std::size_t size, std::size_t& bytesWritten);
    // Back to the first byte.
    bool Rewind();
    // Truncates the file at the current offset.
    bool CutHere();
    bool SetPermissions(unsigned permissions);
    // False when the system could not keep what was written; also for a file that isn't open.
    bool Close();

    // What failed first since the file was last opened: a value of errno, 0 for nothing.
    int Error() const { return error_; }

private:
    bool OpenDescriptor(const std::string& path, int flags);
    bool Await(short event);
    bool Fail(int error);

    StopCheck wantsStop_;
    int descriptor_ = -1;
    bool mayWait_ = false; // no regular file
    int error_ = 0;
};

// The system's text for a value of errno.
std::string ErrorText(int error);

// True for anything under that path, also a folder or a dangling link.
bool FileExists(const std::string& path);

// The bytes of a regular file, also behind a link; nothing when there is none or it can't be read.
// A file longer than `limit` gives no bytes.
std::optional<std::string> ReadRegularFile(const std::string& path, std::size_t limit);

} // namespace XPJ

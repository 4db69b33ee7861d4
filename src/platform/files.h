// Plain files by UTF-8 path, and files that appear under their name only when they are whole.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace XPJ {

// A thin class on a file descriptor. A failed read or write closes the file and counts 0 bytes, so
// that all later calls do nothing.
class CoreFile {
public:
    CoreFile() = default;
    ~CoreFile() { Close(); }
    CoreFile(const CoreFile&) = delete;
    CoreFile& operator=(const CoreFile&) = delete;

    // Creates or truncates for writing, opens what exists for reading.
    bool Open(const std::string& path, bool forWriting);
    // Creates for writing; false if the path is taken.
    bool CreateNew(const std::string& path);
    bool IsOpen() const { return descriptor_ >= 0; }
    // `bytesRead` is less than `size` at the file's end only.
    bool Read(void* buffer, std::size_t size, std::size_t& bytesRead);
    // All of it or nothing that counts.
    bool Write(const void* buffer, std::size_t size, std::size_t& bytesWritten);
    // False when the system could not keep what was written; also for a file that isn't open.
    bool Close();

private:
    friend class AtomicFile;
    int descriptor_ = -1;
};

// True for anything under that path, also a folder or a dangling link.
bool FileExists(const std::string& path);

// The bytes of a regular file, also behind a link; nothing when there is none or it can't be read.
// A file longer than `limit` gives no bytes.
std::optional<std::string> ReadRegularFile(const std::string& path, std::size_t limit);

// Writes beside the final name ("clip.xml.part") and renames at the end, so that a run that fails
// leaves nothing half-written, and an older file as it was.
//
//   AtomicFile output("/p/clip.xml");
//   ... output.File().Write(...) ...
//   if (!output.Commit()) ...   // nothing new under the name
//
// A link is followed; what is no regular file (a pipe, a device) is written to directly.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path);
    // Without a `Commit` what was written goes away.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // False when the file could not be created or a write has failed.
    bool IsOpen() const { return file_.IsOpen(); }
    CoreFile& File() { return file_; }
    // Puts the file under its name; false when any byte of it was lost.
    bool Commit();

private:
    void OpenBeside(unsigned permissions);

    CoreFile file_;
    std::string path_;
    std::string temporaryPath_; // empty: written directly, or done
};

} // namespace XPJ

// Files that appear under their name only when they are whole.
#pragma once

#include "platform/files.h"

#include <string>

namespace XPJ {

// What is appended to the name of a file that isn't whole yet, and a number if that is taken.
constexpr const char* kTemporarySuffix = ".part";

// Writes beside the final name ("clip.xml.part") and renames at the end, so that a run that fails
// leaves nothing half-written and keeps an older file.
//
//   AtomicFile output("/p/clip.xml");
//   ... output.File().Write(...) ...
//   if (!output.Commit()) ...   // nothing new under the name
//
// A link is followed, also to a file that isn't there yet. What is no regular file (a pipe, a
// device) is written to directly. Where an older file can be written but not replaced, as in a
// folder without write permission, the new text is kept elsewhere and copied over the old one at
// the end; a copy that fails restores the old text.
class AtomicFile {
public:
    // With a stop check, waiting for a pipe's reader ends when that returns true.
    explicit AtomicFile(const std::string& path, StopCheck wantsStop = {});
    // Without a `Commit` what was written goes away.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    // False when the file could not be created or a write has failed.
    bool IsOpen() const { return file_.IsOpen(); }
    CoreFile& File() { return file_; }
    // Puts the file under its name; false when any byte of it was lost.
    bool Commit();
    // The system's reason why it isn't open, or was lost; empty if nothing has failed.
    std::string Reason() const;

private:
    void OpenTemporary(unsigned permissions);
    void OpenIn(const std::string& folder, unsigned permissions);
    bool CopyOver();

    CoreFile file_;
    std::string path_;
    std::string temporaryPath_; // empty: written directly, or done
    int error_ = 0;             // beside the file's own
    bool oldTextLost_ = false;
};

} // namespace XPJ

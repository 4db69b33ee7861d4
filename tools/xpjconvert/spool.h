// Temporary files in place of what can't be opened twice, or must not be written in parts.
#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace XPJ {

// A copy of a stream (the standard input, a pipe) in a file without a name.
class SpooledInput {
public:
    SpooledInput() = default;
    ~SpooledInput();
    SpooledInput(const SpooledInput&) = delete;
    SpooledInput& operator=(const SpooledInput&) = delete;

    // Reads all that `path` gives. False when it, or the copy, fails: `Reason` is the system's.
    bool Copy(const std::string& path, StopCheck wantsStop);
    // To be opened as often as needed.
    std::string Path() const;
    const std::string& Reason() const { return reason_; }

private:
    int descriptor_ = -1;
    std::string reason_;
};

// A file under a temporary name, to be written by that name.
class SpooledOutput {
public:
    // Removes the file.
    ~SpooledOutput();
    SpooledOutput() = default;
    SpooledOutput(const SpooledOutput&) = delete;
    SpooledOutput& operator=(const SpooledOutput&) = delete;

    // False when there is no place for it: `Reason` is the system's.
    bool Create();
    const std::string& Path() const { return path_; }
    // Puts what was written on the standard output.
    bool Print();
    const std::string& Reason() const { return reason_; }

private:
    std::string path_;
    std::string reason_;
};

} // namespace XPJ

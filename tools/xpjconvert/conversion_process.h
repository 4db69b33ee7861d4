// The conversion of one document in a process of its own: whatever happens to that process, a crash
// or the end of the memory, costs this document only.
#pragma once

#include "xpjconvert/batch_row.h"
#include "xpjconvert/child_processes.h"
#include "xpjconvert/documents.h"

#include <chrono>
#include <string>

#include <sys/resource.h>
#include <sys/types.h>

namespace XPJ {

class ConversionProcess {
public:
    struct Task {
        ToolOptions options;
        InputDocument document;
        std::string outputPath;
    };
    explicit ConversionProcess(Task task);

    // False when the system has no process or memory left for it; errno is the reason.
    bool Start(const ChildSignal& childSignal, Lifeline& lifeline);
    pid_t Id() const { return id_; }

    // After its end: what became of the document. `waitStatus` and `usage` are from wait4().
    BatchRow RowOf(int waitStatus, const rusage& usage) const;
    // What it has printed.
    std::string Printed() const { return printed_.Read(); }
    std::string Errors() const { return errors_.Read(); }

private:
    [[noreturn]] void Convert();
    void RemoveIncomplete() const;

    Task task_;
    pid_t id_ = -1;
    std::chrono::steady_clock::time_point begin_;
    bool hadTemporary_ = false;
    SharedText printed_;
    SharedText errors_;
    SharedText result_;
};

} // namespace XPJ

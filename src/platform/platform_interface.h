// What a host's foundation gives; platform/platform.h has the one in use.
#pragma once

#include "core/guid.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

// What drives a progress display: one conversion, started once and polled.
class ProgressOperation {
public:
    virtual ~ProgressOperation() = default;
    // False when no worker could be started.
    virtual bool Start() = 0;
    virtual void Cancel() = 0;
    // 0 to 1.
    virtual double GetProgress() = 0;
    virtual bool IsDone() = 0;
    // Returns when the operation is done or the time is over, true when it is done.
    virtual bool WaitFor(std::chrono::milliseconds time) = 0;
};

class Platform {
public:
    virtual ~Platform() = default;

    // Text of a key "$$$/Vela/FCP/OK=OK" in the running locale; by default what follows the "=".
    virtual std::u16string Localize(std::string_view key);

    // A new GUID on each call.
    virtual Guid CreateUniqueGuid() = 0;

    // The user's documents folder with a trailing separator; empty when there is none.
    virtual std::string DocumentsFolder() = 0;

    // Value of a flag of the host's debug database, nothing if it isn't set.
    virtual std::optional<std::string> DebugEntry(std::string_view key) = 0;

    virtual std::chrono::system_clock::time_point Now() { return std::chrono::system_clock::now(); }

    // True when message boxes and dialogs can be shown at all.
    virtual bool HasUserInterface() { return false; }
    virtual void ShowMessageBox(const std::string& title, const std::string& text,
                                const std::string& button);
    // Runs the operation under a modal dialog (bar from 0 to 100, label, cancel button) that polls
    // each 250 ms; returns when the dialog has closed. Called only with a user interface.
    virtual void RunProgressDialog(ProgressOperation& operation, const std::string& label,
                                   const std::string& cancelButton);

    // Start and stop of the host's graphics services, counted.
    virtual void StartServices() {}
    virtual void StopServices() {}
};

} // namespace XPJ

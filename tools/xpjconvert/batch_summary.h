// The table of a batch: a row for each document, as CSV or JSON by the extension of the file.
#pragma once

#include "platform/atomic_file.h"
#include "xpjconvert/batch_row.h"

#include <memory>
#include <string>

namespace XPJ {

// Rows are written as they come. The file is there, and whole, once `Finish` was called.
class BatchSummary {
public:
    // Without a path there is no file.
    explicit BatchSummary(const std::string& path);

    // False when the file could not be created, or has failed since.
    bool IsGood() const { return !file_ || file_->IsOpen(); }
    void Add(const BatchRow& row);
    // False when any of it was lost.
    bool Finish(const BatchTotals& totals);
    // The system's reason.
    std::string Reason() const { return file_ ? file_->Reason() : std::string(); }

private:
    void Write(const std::string& text);

    std::unique_ptr<AtomicFile> file_; // none without a path
    bool isJson_ = false;
    bool hasRow_ = false;
};

} // namespace XPJ

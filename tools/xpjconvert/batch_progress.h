// The progress of a batch on the terminal.
#pragma once

#include "xpjconvert/batch_row.h"

#include <chrono>

namespace XPJ {

// A line on the standard error, where that is a terminal: how many documents are done, how many are
// being converted, how many have failed, and the time left.
class BatchProgress {
public:
    explicit BatchProgress(bool quiet);
    // Removes the line.
    ~BatchProgress() { Hide(); }
    BatchProgress(const BatchProgress&) = delete;
    BatchProgress& operator=(const BatchProgress&) = delete;

    void Show(const BatchTotals& totals, std::size_t running);
    // For other text.
    void Hide();

private:
    const bool isShown_;
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    bool hasLine_ = false;
};

} // namespace XPJ

// One document of a batch, what became of it, and the totals of all.
#pragma once

#include "report/account_report.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace XPJ {

enum class RowResult {
    Converted, // the output is complete
    Skipped,   // nothing had to be done
    Failed,
    Aborted, // it was interrupted
};

struct BatchRow {
    std::string input = {};
    std::string output = {};
    RowResult result = RowResult::Failed;
    int status = 0;           // the exit status of a conversion of this document alone
    std::string message = {}; // why it failed or was skipped; warnings
    double seconds = 0;
    double cpuSeconds = 0;
    std::uint64_t peakMemory = 0; // bytes, as are the two sizes
    std::uint64_t bytesIn = 0;
    std::uint64_t bytesOut = 0;
    OutcomeCounts counts = {};
    std::string report = {}; // empty: none was written
};

struct BatchTotals {
    std::size_t documents = 0; // to be converted; more than the others in sum after an interrupt
    std::size_t converted = 0;
    std::size_t skipped = 0;
    std::size_t failed = 0;
    std::size_t aborted = 0;
    std::size_t withLosses = 0; // converted, with what --fail-on names
    OutcomeCounts counts = {};

    void Add(const BatchRow& row);
    std::size_t Done() const { return converted + skipped + failed + aborted; }
};

// "converted", "skipped", "failed" or "aborted".
std::string_view ResultName(RowResult result);

// "Converted 198 of 200 documents, 2 failed; 3 lost, 1 changed."
std::string ClosingLineOf(const BatchTotals& totals, bool isDryRun);

} // namespace XPJ

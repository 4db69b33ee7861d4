// The last lines that the tool prints about a conversion.
#pragma once

#include "core/encoding.h"
#include "frame/conversion.h"
#include "frame/otio_conversion.h"

#include <string>

namespace XPJ {

// "FILE:LINE:COLUMN: reason, in open/elements", without line and column where there are none.
std::string StopText(const std::string& input, const ReadStop& stop);

// Warnings of an unknown encoding and of invalid bytes, a line each.
std::string EncodingLines(const std::string& input, const EncodingFaults& faults);

struct SuccessKind {
    bool isVerified = false;
    bool isDryRun = false;
};
// What was written, how much did not arrive as it was, and where the report is.
//   "Wrote cut.vlproj: 3 lost, 1 changed, listed in /home/a/cut.report.txt"
std::string SuccessLine(const ConversionRequest& request, const ConversionOutcome& outcome,
                        SuccessKind kind);

//   "Wrote cut.otio: 2 sequences, 34 clips"
std::string TimelinesLine(const ConversionRequest& request, const OtioOutcome& outcome,
                          bool isDryRun);

// Warns of an input that ends inside an element; empty for a whole one.
std::string CutOffLine(const ConversionRequest& request, const ConversionOutcome& outcome);

// Where and why a conversion ended with a result other than kSuccess.
//   "XPJConvert: cut.xml:12:7: a second "<" where a name should start, in xmeml/sequence"
std::string FailureLine(const ConversionRequest& request, const ConversionOutcome& outcome);
// The same where only the input was at fault.
std::string FailureLine(const std::string& input, int result, const ReadStop& stop);

} // namespace XPJ

// What the tool says at a conversion's end.
#pragma once

#include "core/encoding.h"
#include "xpjconvert/conversion.h"

#include <string>

namespace XPJ {

// "FILE:LINE:COLUMN: reason, in open/elements", without the place where there is none.
std::string StopText(const std::string& input, const ReadStop& stop);

// Warns of bytes that are no text, a line each; empty where all of them are.
std::string EncodingLines(const std::string& input, const EncodingFaults& faults);

// What was written, how many findings there are, and where the report is.
//   "Wrote cut.vlproj: 3 findings, listed in /home/a/Documents/FCP Translation Results ....txt"
std::string SuccessLine(const std::string& output, const FileConversion& outcome);

// Warns of an input that ends inside an element; empty for a whole one.
std::string CutOffLine(const ToolOptions& options, const FileConversion& outcome);

// File, reason and place of a conversion that ended with a result other than kSuccess.
//   "XPJConvert: cut.xml:12:7: a second "<" where a name should start, in xmeml/sequence"
std::string FailureLine(const ToolOptions& options, const FileConversion& outcome);

} // namespace XPJ

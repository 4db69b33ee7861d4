// The console: conversions from file to file that print their progress and their issues.
#pragma once

#include "frame/conversion.h"

#include <iosfwd>

namespace XPJ {

// Converts the request's input file; an empty output path means `DefaultOutputName`. Gives a
// ConversionResult.
int ConvertFile(ConversionRequest request, std::ostream& out);

// The same in the direction of the input's extension, whatever the request's formats are, and
// prints the reason of a failure. kInputCouldNotBeOpened for an extension of no format.
int ConvertByExtension(ConversionRequest request, std::ostream& out);

} // namespace XPJ

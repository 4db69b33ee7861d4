// How a conversion ended; also the exit status of the tool.
#pragma once

namespace XPJ {

enum ConversionResult : int {
    kSuccess = 0,
    kAborted = 1,        // cancelled
    kNoFCPDataFound = 2, // an `xmeml` document without anything to translate
    kOutOfMemory = 3,
    kNoXMELM = 4, // no document element
    kInputCouldNotBeOpened = 5,
    kUnexpectedError = 6,
};

} // namespace XPJ

// Conversions from file to file, without a host.
#pragma once

#include "frame/conversion.h"

#include <functional>
#include <string>

namespace XPJ {

// Who watches a conversion; either may be empty.
struct ProgressWatch {
    std::function<void(double)> show{}; // called with the progress, 0 to 1, each 250 ms
    std::function<bool()> wantsStop{};  // called each 50 ms; true cancels the conversion
};

// The output file is there, and whole, only when the result is kSuccess; an older file of that name
// stays otherwise. An output that can't be created doesn't stop the conversion: its issues are of
// use all the same. One that is the input is refused.
ConversionOutcome ConvertFiles(const ConversionRequest& request, const ProgressWatch& watch = {});

// The input's name in the current directory, with the extension of the other format: cut at the
// first occurrence of its own.
//   {.inputPath = "/p/a.xml"} gives "a.vlproj"
std::string DefaultOutputName(const ConversionRequest& request);

} // namespace XPJ

// Names in braces within a text, replaced by values of the edit that is being shown.
#pragma once

#include "grading/property_list.h"
#include "grading/timecode.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace XPJ {

struct MacroContext {
    std::int64_t editNumber = 0;
    std::int64_t frameIndex = 0;  // of the source, from 0
    std::int64_t frameNumber = 0; // of the source, in its own numbering
    std::int64_t position = 0;    // on the timeline
    TimeCode sourceTimeCode;
    TimeCode timelineTimeCode;
    double timelineRate = 0;
    std::tm renderStart{};
};

// "{General.EditNumber}" and its kin, in any case; another name is a property's. An unknown one
// becomes nothing, a "{" without "}" turns the rest of the text into a mark. Values are not
// expanded again. "Padded." names take a width of 1 to 32 behind the dot, "__All" lists every macro
// and property.
//   Expand("shot_{General.EditNumberPadded.4}", context, {})   // "shot_0012"
std::string Expand(std::string_view text, const MacroContext& context,
                   const CZvPropertyList& properties);

} // namespace XPJ

// Documents of any format as files of OpenTimelineIO. Nothing is translated: what is written is
// what an inspection shows, so there is no account of it either.
#pragma once

#include "frame/conversion.h"
#include "frame/document_timelines.h"
#include "platform/files.h"

#include <cstddef>

namespace XPJ {

constexpr std::string_view kOtioExtension = "otio";

struct OtioOutcome {
    ConversionOutcome conversion; // the account is empty
    EncodingFaults encoding;
    // Of what was written, see Inspection::OtioText.
    std::size_t sequences = 0;
    std::size_t items = 0;
};

// Of the request the paths and the sequence count. May throw std::bad_alloc.
OtioOutcome ConvertToOtio(const ConversionRequest& request, DocumentReading reading,
                          const StopCheck& wantsStop = {});

} // namespace XPJ

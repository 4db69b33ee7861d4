// The timelines of a whole document of any format, for inspection and comparison.
#pragma once

#include "core/conversion_result.h"
#include "core/encoding.h"
#include "inspect/timeline.h"
#include "tree/reading.h"

#include <string>
#include <string_view>

namespace XPJ {

struct DocumentTimelines {
    int result = kSuccess; // a ConversionResult
    ReadStop stop;         // where reading stopped early
    EncodingFaults encoding;
    bool isHandOff = false;      // of the audio hand-off, which is taken to the letter
    Inspection::Project project; // as far as it could be read
};

// How documents of other programs are taken.
enum class DocumentReading {
    ToTheLetter,
    AsMeant, // as a conversion in open interchange takes them: by the dialect rules
};

// Of a document in memory; relative paths of media count from `folder`, which has its last
// separator.
DocumentTimelines ReadTimelines(std::string_view bytes, std::string_view folder = {},
                                DocumentReading reading = DocumentReading::ToTheLetter);

DocumentTimelines ReadTimelinesOfFile(const std::string& path, DocumentReading reading);

// Of two files that are to be compared, both in one way: a document of the hand-off is taken to the
// letter, and so is its partner.
struct ComparedTimelines {
    DocumentTimelines first;
    DocumentTimelines second;
};
ComparedTimelines ReadForComparison(const std::string& first, const std::string& second,
                                    DocumentReading reading);

} // namespace XPJ

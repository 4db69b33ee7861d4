// The timelines of a whole document of any format, for inspection and comparison.
#pragma once

#include "core/conversion_result.h"
#include "core/encoding.h"
#include "inspect/timeline.h"
#include "tree/reading.h"

#include <string>
#include <string_view>
#include <utility>

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

// A file and the folder from which relative paths in it count, with its last separator.
struct DocumentFile {
    std::string path;
    std::string folder;

    explicit DocumentFile(std::string file);
    DocumentFile(std::string file, std::string_view base) : path(std::move(file)), folder(base) {}
};
DocumentTimelines ReadTimelinesOfFile(const DocumentFile& file, DocumentReading reading);

// Of two files that are to be compared, both in one way: a document of the hand-off is taken to the
// letter, and so is its partner.
struct ComparedTimelines {
    DocumentTimelines first;
    DocumentTimelines second;
};
ComparedTimelines ReadForComparison(const DocumentFile& first, const DocumentFile& second,
                                    DocumentReading reading);

// Leaves in `project` no sequences but those that `other` has by name, and no browser: for what is
// compared with the conversion of one sequence.
void KeepSequencesOf(const Inspection::Project& other, Inspection::Project& project);

} // namespace XPJ

// Bytes of an `xmeml` document to its tree.
#pragma once

#include "core/progress.h"
#include "tree/object.h"
#include "tree/reading.h"
#include "xmeml/elements.h"
#include "xmeml/sniff.h"

#include <string>
#include <string_view>

namespace XPJ {

struct XmemlReadNotes : ReadNotes {
    FileKind kind;
};

// Reads an `xmeml` file of any version and encoding into `document`; on kReadDone `root` is the
// `xmeml` node, with references by `id` bound. Each KB of file is a progress step when it comes in,
// and one when it is parsed.
int ReadFCPXML(const std::string& path, Progress& progress, Document& document, ObjectHandle& root,
               XmemlReadNotes* notes = nullptr, ReadingManner manner = ReadingManner::Letter);

// The same for UTF-8 text in memory; without progress.
int ParseFCPXML(std::string_view text, Document& document, ObjectHandle& root,
                ReadStop* stop = nullptr, ReadingManner manner = ReadingManner::Letter);

} // namespace XPJ

// Bytes of a project document to its tree.
#pragma once

#include "tree/object.h"
#include "tree/reading.h"

#include <iosfwd>
#include <string_view>

namespace XPJ {

// Reads a project document; on kReadDone `root` is the `VelaData` node, with references bound.
int ReadProjectDocument(std::istream& input, Document& document, ObjectHandle& root,
                        ReadNotes* notes = nullptr);
// The same for the bytes of a file, in any encoding, which must live as long as the document.
int ReadProjectBytes(std::string_view bytes, Document& document, ObjectHandle& root,
                     ReadNotes& notes);

// The same for UTF-8 text in memory, which must live as long as the document.
int ParseProjectDocument(std::string_view text, Document& document, ObjectHandle& root,
                         ReadStop* stop = nullptr);

} // namespace XPJ

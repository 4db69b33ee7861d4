// Bytes of a project document to its tree.
#pragma once

#include "tree/input.h"
#include "tree/object.h"
#include "tree/reading.h"

#include <iosfwd>
#include <string_view>

namespace XPJ {

// Reads a project document; on kReadDone `root` is the `VelaData` node, with references bound.
int ReadProjectDocument(std::istream& input, Document& document, ObjectHandle& root,
                        ReadNotes* notes = nullptr);
// The same for a text that was read, in any encoding.
int ReadProjectText(InputText& text, Document& document, ObjectHandle& root, ReadNotes& notes);

// The same for UTF-8 text in memory.
int ParseProjectDocument(std::string_view text, Document& document, ObjectHandle& root,
                         ReadStop* stop = nullptr);

} // namespace XPJ

// The two readers: bytes to tree. Lenient by design; both stop only at what the tokeniser calls a
// syntax error, at a cancellation, or at the input's end, where the tree holds what was complete.
#pragma once

#include "core/encoding.h"
#include "core/progress.h"
#include "model/object.h"
#include "model/sniff.h"

#include <cstddef>
#include <iosfwd>
#include <string>

namespace XPJ {

// Results of the readers.
enum ReadResult : int {
    kReadDone = 0,
    kReadNoInput = -1,   // the file can't be opened, the stream isn't good
    kReadNoElement = -2, // no document element
    kReadSyntax = -3,    // syntax error, nesting beyond the limit, or no root
    kReadCancelled = -4,
};

// Nesting of more levels is a syntax error.
constexpr int kMaxNesting = 1000;

// Where and why reading stopped early; `reason` is empty when it did not. Beside kReadDone it tells
// that the input ends inside an element: the tree then holds what came before. `line` is 0 where
// the reason has no place, as for a missing file or element.
struct ReadStop {
    std::string reason;
    std::size_t offset = 0; // bytes from the start of the text, in UTF-8
    std::size_t line = 0;   // from 1
    std::size_t column = 0; // bytes, from 1
    std::string path;       // open elements, "xmeml/project/children"; a deep one has "..." inside
};

// What reading tells of a document beside its tree.
struct ReadNotes {
    ReadStop stop;
    EncodingFaults encoding;
    FileKind kind; // of an `xmeml` file
};

// Reads an `xmeml` file of any version and encoding into `document`; on kReadDone `root` is the
// `xmeml` node, with references by `id` bound. Each KB of file is a progress step when it comes in,
// and one when it is parsed.
int ReadFCPXML(const std::string& path, Progress& progress, Document& document, ObjectHandle& root,
               ReadNotes* notes = nullptr);

// The same for UTF-8 text in memory, which must live as long as the document; without progress.
int ParseFCPXML(std::string_view text, Document& document, ObjectHandle& root,
                ReadStop* stop = nullptr);

// Reads a project document; on kReadDone `root` is the `VelaData` node, with references bound.
int ReadProjectDocument(std::istream& input, Document& document, ObjectHandle& root,
                        ReadNotes* notes = nullptr);

// The same for UTF-8 text in memory, which must live as long as the document.
int ParseProjectDocument(std::string_view text, Document& document, ObjectHandle& root,
                         ReadStop* stop = nullptr);

} // namespace XPJ

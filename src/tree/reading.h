// How reading went, as all readers report it. Readers are lenient by design: they stop only at what
// the tokeniser calls a syntax error, at a cancellation, or at the input's end, where the tree
// holds what was complete.
#pragma once

#include "core/encoding.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

// Where and why reading stopped early; `reason` is empty when it did not. Beside kReadDone it
// reports that the input ends inside an element: the tree then holds what came before. `line` is 0
// where the reason has no location, as for a missing file or element.
struct ReadStop {
    std::string reason;
    std::size_t offset = 0; // bytes from the start of the text, in UTF-8
    std::size_t line = 0;   // from 1
    std::size_t column = 0; // bytes, from 1
    std::string path;       // open elements, "xmeml/project/children"; a deep one has "..." inside
};

// Elements that the vocabulary doesn't have where they are; what is inside is not listed. An
// attribute that it doesn't have is at the path of its element, "xmeml/sequence@rating"; it is that
// element's where this is a node.
struct IgnoredElements {
    std::string path;                       // "xmeml/sequence/media/video/track/fold"
    std::vector<std::uint64_t> owners = {}; // for each the identity of the node around it
};

// What reading found beside the tree.
struct ReadNotes {
    ReadStop stop;
    std::vector<IgnoredElements> ignored = {}; // by path
    EncodingFaults encoding;
};

} // namespace XPJ

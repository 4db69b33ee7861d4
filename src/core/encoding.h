// A document's bytes as UTF-8, whatever encoding they are in.
//
// The encoding is that of, in this order: a byte order mark; the zero bytes beside the first "<" of
// UTF-16 and UTF-32; the XML declaration. Without any of them it is UTF-8, and also where the
// declaration can't be true, as it isn't readable in the encoding that it names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace XPJ {

// What went wrong on the way.
struct EncodingFaults {
    std::string encoding;      // what the bytes were read as, "UTF-8"
    std::string unknown;       // a declared encoding that this system doesn't have; UTF-8 was taken
    std::size_t badRuns = 0;   // runs of bytes that are invalid in the encoding
    std::size_t firstLine = 0; // of the first of them, from 1, in the text that comes out
    std::size_t firstColumn = 0;
};

// The text, in UTF-8. What is UTF-8 comes back as it is, invalid bytes too; anything else is
// decoded into `decoded`, which must live as long as the text, with U+FFFD for invalid bytes.
std::string_view DecodeDocument(std::string_view bytes, std::string& decoded,
                                EncodingFaults& faults);

// Line and column, in bytes and from 1, of an offset in a text. CR LF is one line end, and so is a
// CR alone.
struct TextPosition {
    std::size_t line = 1;
    std::size_t column = 1;
};
TextPosition PositionOf(std::string_view text, std::size_t offset);

} // namespace XPJ

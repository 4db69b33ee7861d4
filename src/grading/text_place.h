// Lines and columns of a text, for messages about it.
#pragma once

#include <cstddef>
#include <string_view>

namespace XPJ {

// Both count from 1, a column counts bytes.
struct TextPlace {
    int line = 1;
    int column = 1;
};

// LF, CR and both together end a line; a byte-order mark takes no column.
TextPlace PlaceAt(std::string_view text, std::size_t offset);

} // namespace XPJ

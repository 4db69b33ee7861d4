// Text for terminals: rows of cells, paragraphs.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

using Row = std::vector<std::string>;

// Each row a line; columns are as wide as their widest cell, in characters, and two blanks apart.
// Cells that look like numbers in all rows but the first, the heading, are aligned to the right.
std::string ColumnsText(const std::vector<Row>& rows);

// The words of `text` in lines of at most `width` bytes, at least one line; a longer word has a
// line of its own.
std::vector<std::string> WrappedLines(std::string_view text, std::size_t width);

} // namespace XPJ::Inspection

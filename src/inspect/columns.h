// Rows of cells as aligned text.
#pragma once

#include <string>
#include <vector>

namespace XPJ::Inspection {

using Row = std::vector<std::string>;

// Each row a line; columns are as wide as their widest cell, in characters, and two blanks apart.
// Cells that look like numbers in all rows but the first, the heading, are aligned to the right.
std::string ColumnsText(const std::vector<Row>& rows);

} // namespace XPJ::Inspection

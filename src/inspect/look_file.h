// Look documents and lookup tables, recognised by their contents.
#pragma once

#include "grading/grading.h"

#include <optional>
#include <string>
#include <string_view>

namespace XPJ::Inspection {

// One of the two.
struct LookFile {
    std::optional<CGrading> look;
    std::optional<CZv3DLUT> table;
    std::string_view tableFormat; // ".cube"
};

// True for a file that is meant as a look document or a table, even if it can't be read. A document
// of an edit is none; only its head is examined.
bool IsLookFile(std::string_view bytes);

// Nothing, and the reason, for one that can't be read. `name` is what a table is called.
std::optional<LookFile> ReadLookFile(std::string_view bytes, std::string_view name,
                                     CZvError& error);

} // namespace XPJ::Inspection
